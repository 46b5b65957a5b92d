#pragma once

#include "Command.h"

namespace autonotify::console {

void describeCopy(CLI::App& command, Arguments& arguments);
/// Copies a database between files and servers. The copy takes the database's place: it has the
/// same keys and names its emails alike, so that only one of the two should go on being used. What
/// was interrupted cannot be opened; the same command goes on with it.
Reply runCopy(const GlobalOptions& options, const Arguments& arguments);

void describeRole(CLI::App& command, Arguments& arguments);
/// Prints a script for psql that makes a role for desks at a database on a server, or nothing.
Reply runRole(const GlobalOptions& options, const Arguments& arguments);

}  // namespace autonotify::console
