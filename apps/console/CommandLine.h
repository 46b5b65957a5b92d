#pragma once

#include <CLI/CLI.hpp>

#include "Arguments.h"

namespace autonotify::console {

struct Command;

/// What may be typed behind the program's name, and what was.
struct CommandLine {
  CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  CLI::App app;
  GlobalOptions options;
  Arguments arguments;
  /// The command that was named.
  const Command* chosen = nullptr;
};

}  // namespace autonotify::console
