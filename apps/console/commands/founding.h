#pragma once

#include "Command.h"

namespace autonotify::console {

void describeInit(CLI::App& command, Arguments& arguments);
/// Makes a new database: an empty firm, or the demo firm. The file appears whole or not at all.
Reply runInit(const GlobalOptions& options, const Arguments& arguments);

}  // namespace autonotify::console
