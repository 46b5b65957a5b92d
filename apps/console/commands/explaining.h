#pragma once

#include "Command.h"

namespace autonotify::console {

void describeExplain(CLI::App& command, Arguments& arguments);
/// Why a notification of the task would get its date.
Reply runExplain(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
