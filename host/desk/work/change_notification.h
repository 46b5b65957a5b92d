#pragma once

#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/rows/Notification.h"

namespace autonotify::host {

/// A notification whose change was asked for, as it stands now.
struct Change {
  Notification row;
  /// False when its state does not allow the change.
  bool isDone = true;
};

/// A cancelled notification is not sent any more. One that was interrupted while being sent or
/// cancelled may be cancelled too.
Outcome<Change> cancelNotification(Desk& desk, Id id);

/// Another date for a notification that waits.
Outcome<Change> moveNotification(Desk& desk, Id id, DateTime date);

/// A notification whose date was worked out anew.
struct Refreshed {
  Notification row;
  /// What it was dated before, if only because somebody had moved it.
  DateTime formerDate;
};

/// Works out the dates of a task's notifications anew, after its due date or kind has changed, and
/// gives them all; none for a task that has none.
Outcome<std::vector<Refreshed>> refreshNotifications(Desk& desk, Id task);

}  // namespace autonotify::host
