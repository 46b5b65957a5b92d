#pragma once

#include "Command.h"

namespace autonotify::console {

void describeDay(CLI::App& command, Arguments& arguments);
/// What is overdue, due today and due this week, and how much there is in the weeks to come.
Reply runDay(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
