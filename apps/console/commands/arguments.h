#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "Arguments.h"
#include "Reply.h"

namespace autonotify::console {

// Arguments that several commands share. A wrong one is a usage error with a clear line.

void addTask(CLI::App& command, Arguments& arguments);
void addNotification(CLI::App& command, Arguments& arguments);
/// --channel, once or more, or several names separated by commas.
void addChannels(CLI::App& command, Arguments& arguments);
void addDateOption(CLI::App& command, const std::string& name, std::optional<DateTime>& target,
                   const std::string& help);

/// Throws CLI::ValidationError for a text that is no date.
DateTime readDate(const std::string& text);

/// The channels of a bit set by name.
Json channelList(int bits);

/// The whole file. Throws Refusal when it cannot be read or holds more than 16 MiB.
std::string readFile(const std::string& path);

}  // namespace autonotify::console
