#pragma once

#include "Command.h"

namespace autonotify::console {

void describeCalls(CLI::App& command, Arguments& arguments);
/// The calls that are due, each with all that is needed to make it.
Reply runCalls(host::Desk& desk, const Arguments& arguments);

void describeCall(CLI::App& command, Arguments& arguments);
/// Notes that a client was called, and with what result.
Reply runCall(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
