#pragma once

#include "Command.h"

namespace autonotify::console {

void describeHolidays(CLI::App& command, Arguments& arguments);
/// Lists the days on which the firm is closed, adds one and takes one out.
Reply runHolidays(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
