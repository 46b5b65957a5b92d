#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/desk/rows/Notification.h"

namespace autonotify::host {

// What is due: unsent, and dated today or before. All throw DatabaseError.

/// What is due, by date: without fields and text.
std::vector<Notification> readDue(Desk& desk);
/// The rows whose marking as sent was interrupted, then what is due.
std::vector<Id> notificationsToSend(Desk& desk);
std::size_t countDueNotifications(Desk& desk);

/// The condition on ClientNotification for what is due, for a WHERE.
std::string dueCondition(Desk& desk);

}  // namespace autonotify::host
