#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace autonotify::console {

/// The line for a command line that cannot be understood, in plain words. Arguments that read their
/// own text have worded their errors themselves.
std::string usageFault(const CLI::App& app, const CLI::ParseError& error);

/// What stands below the list of commands in the help text.
std::string usageNotes();

}  // namespace autonotify::console
