#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace autonotify::console {

/// Those below the program or a command, as they were added.
std::vector<const CLI::App*> commandsOf(const CLI::App& app);

/// Notes the words of which an argument takes one, with blanks between, for completions; its reader
/// refuses all else.
void setKnownValues(CLI::Option& option, const std::string& words);
/// The words; empty for an argument that takes others.
std::string knownValues(const CLI::Option& option);

/// For a word that stands where one of the commands should: which was meant, or all that there are.
std::string unknownCommand(const CLI::App& above, const std::string& typed);

/// The line for a command line that cannot be understood, in plain words. Arguments that read their
/// own text have worded their errors themselves.
std::string usageFault(const CLI::App& app, const CLI::ParseError& error);

/// What stands below the list of commands in the help text.
std::string usageNotes();

}  // namespace autonotify::console
