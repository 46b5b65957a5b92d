#pragma once

#include <string>

#include "host/desk/rows/Notification.h"
#include "host/desk/rows/Task.h"
#include "host/desk/work/client_contacts.h"

namespace autonotify::host {

/// How a client is reached, and by whom it is looked after; what is not known is empty.
struct ClientCard {
  std::string name, number, accountant, email, phone;
};

/// Throws DatabaseError.
ClientCard readClientCard(Desk& desk, const Client& client);

/// Whom the notification goes to.
Client clientOf(const Notification& row);
/// Whose task it is.
Client clientOf(Desk& desk, const Task& task);

}  // namespace autonotify::host
