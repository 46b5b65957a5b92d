#pragma once

#include "Command.h"

namespace autonotify::console {

void describeDue(CLI::App& command, Arguments& arguments);
/// Unsent notifications dated today or before.
Reply listDue(host::Desk& desk, const Arguments& arguments, RowForm form);

void describeNotifications(CLI::App& command, Arguments& arguments);
/// The firm's notifications, by date.
Reply listAllNotifications(host::Desk& desk, const Arguments& arguments, RowForm form);

void describeHistory(CLI::App& command, Arguments& arguments);
/// What was sent to a client, newest first.
Reply listHistory(host::Desk& desk, const Arguments& arguments, RowForm form);

}  // namespace autonotify::console
