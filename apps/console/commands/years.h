#pragma once

#include "Command.h"

namespace autonotify::console {

void describeYear(CLI::App& command, Arguments& arguments);
/// Adds the notifications of all open tasks of a client's year; see host::scheduleYear.
Reply runYear(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
