#pragma once

#include "Command.h"

namespace autonotify::console {

void describeTasks(CLI::App& command, Arguments& arguments);
/// Open tasks with their due dates and channels, by due date.
Reply listTasks(host::Desk& desk, const Arguments& arguments, RowForm form);

}  // namespace autonotify::console
