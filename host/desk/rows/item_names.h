#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/desk/rows/Notification.h"

namespace autonotify::host {

/// A schedule entry or an item of the diary, as lists of notifications name it.
struct NotifiedItem {
  std::string name;
  /// The member of staff whose work it is; empty for none.
  std::string assigned;
  /// When it is due or takes place; the zero date where that is not known.
  DateTime day;
};

/// What the notifications are about, by their ids: read with one statement for each table. Those
/// that are about nothing, or nothing that is still there, are left out.
std::unordered_map<Id, NotifiedItem> readItems(Desk& desk,
                                               const std::vector<Notification>& notifications,
                                               UnreadableRows& unreadable);

/// What the notification is about: the schedule entry's name, or the item's subject.
std::string itemName(Desk& desk, const Notification& notification);

// For statements on ClientNotification.

/// The item's name and who it is assigned to, as terms of an ORDER BY.
std::string itemNameTerm();
std::string assignedTerm();
/// The condition that the item is assigned to this member of staff, in any case.
std::string assignedCondition(Desk& desk, const std::string& name);

}  // namespace autonotify::host
