#pragma once

#include <functional>
#include <string>

#include "host/desk/rows/Notification.h"

namespace autonotify::host {

/// A row of the list that nothing was done with.
struct RefusedRow {
  enum class Why {
    notThere,
    /// Another desk works on it and did not let go in time.
    atWorkElsewhere,
    /// It was sent or cancelled after the list had read it.
    settled,
  };

  Why why;
  Id id;
  /// Of a row that is there: to whom it goes, and how it stands now.
  std::string client = {};
  NotificationState state = NotificationState::pending;
};

/// Who hears of what is done with the rows of the list.
struct ListListener {
  /// An act on the row begins; no other desk works on it.
  std::function<void(const Notification& row)> begun;
  std::function<void(const RefusedRow& row)> refused;
};

/// Opens the list of notifications; returns when the person is done with it.
///
/// While a row is sent, cancelled or looked at, no other desk works on it nor on what it is about,
/// and its state is read only then. A row that is refused is shown as it stands by now and told; in
/// a send of all rows, one that a colleague has settled is shown alone. Where the database fails, a
/// send of all goes no further.
void openNotificationList(Desk& desk, const ListListener& listener);

}  // namespace autonotify::host
