#pragma once

#include <cstddef>
#include <string>

#include "host/desk/rows/Notification.h"

namespace autonotify::host {

// What is due: unsent, and dated today or before. Of a date that cannot be read nobody knows that
// it is not: such a row counts as due until someone mends it. All throw DatabaseError.

inline constexpr int allChannels = -1;
/// The rows whose marking as sent was interrupted, then what is due, by one of the channels.
ReadableRows<Id> notificationsToSend(Desk& desk, int channels = allChannels);
/// What is due by one of the channels today, or by another day, by date, with its text.
ReadableRows<Notification> readWholeDue(Desk& desk, int channels, DateTime day);
/// As many as the list of notifications opens with. A date that cannot be read keeps a row from it.
std::size_t countListedNotifications(Desk& desk);

/// The condition on ClientNotification for what is due today, or by another day, for a WHERE.
std::string dueCondition(Desk& desk);
std::string dueCondition(Desk& desk, DateTime day);

}  // namespace autonotify::host
