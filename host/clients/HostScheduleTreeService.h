#pragma once

#include "contract/ScheduleTreeService.h"

namespace autonotify::host {

/// The firm's kinds, a group for each family under the name of the family's own row, both in the
/// order in which the firm numbers them. The template of a family itself is no kind of task; a row
/// with a number that cannot be read is left out.
class HostScheduleTreeService : public ScheduleTreeService {
 public:
  void put_DatabaseReference(DatabaseReference* value) override { database_ = value; }
  /// With the database closed the tree is empty. Throws PlatformError (91) without a database, and
  /// what that throws; the tree keeps what it held then.
  void populateFirstScheduleTypes(TreeView& tree) override;

 private:
  DatabaseReference* database_ = nullptr;
};

}  // namespace autonotify::host
