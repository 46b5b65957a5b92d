#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace autonotify::console {

// Made of the same commands and options as the help text.

/// The manual page, for man(1).
std::string manualPage(const CLI::App& program);

/// What a shell completes commands and options by.
std::string bashCompletion(const CLI::App& program);
std::string zshCompletion(const CLI::App& program);
std::string fishCompletion(const CLI::App& program);

}  // namespace autonotify::console
