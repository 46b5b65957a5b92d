#pragma once

#include <span>
#include <string_view>

#include "Arguments.h"
#include "Reply.h"

namespace CLI {
class App;
}

namespace autonotify::host {
class Desk;
}

namespace autonotify::console {

/// One command of the program. Commands that need a database get the desk at it.
struct Command {
  const char* name;
  const char* help;
  void (*describe)(CLI::App& command, Arguments& arguments);
  /// Exactly one of the two is set.
  Reply (*run)(host::Desk& desk, const Arguments& arguments);
  Reply (*runAlone)(const GlobalOptions& options, const Arguments& arguments);
};

/// In the order of the help text.
std::span<const Command> allCommands();

}  // namespace autonotify::console
