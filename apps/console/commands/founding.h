#pragma once

#include "Command.h"

namespace autonotify::console {

void describeInit(CLI::App& command, Arguments& arguments);
/// Makes a new database: an empty firm, or the demo firm. A file appears whole or not at all; on a
/// server what was interrupted cannot be opened, and the next run begins anew.
Reply runInit(const GlobalOptions& options, const Arguments& arguments);

}  // namespace autonotify::console
