#pragma once

#include "Command.h"

namespace autonotify::console {

void describeTasks(CLI::App& command, Arguments& arguments);
/// Open tasks with their due dates and channels, by due date.
Reply runTasks(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
