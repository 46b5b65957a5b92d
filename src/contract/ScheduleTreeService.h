#pragma once

#include "platform/HostObject.h"

namespace autonotify {

class DatabaseReference;
class TreeView;

/// Fills the tree that a person chooses a kind of schedule entry from.
class ScheduleTreeService : public HostObject {
 public:
  static constexpr const char* className = "ScheduleTreeService";
  /// Stands before the `ScheduleTypeID` in the key of a kind's node.
  static constexpr const char* kindKey = "ScheduleType:";

  /// Not owned.
  virtual void put_DatabaseReference(DatabaseReference* value) = 0;
  /// Fills the tree anew: groups, and below each of them the firm's kinds that belong to it. Only
  /// the kinds have a parent.
  virtual void populateFirstScheduleTypes(TreeView& tree) = 0;
};

}  // namespace autonotify
