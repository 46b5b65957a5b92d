#pragma once

#include <span>
#include <string_view>

#include "Arguments.h"
#include "Reply.h"
#include "RowPrinter.h"

namespace CLI {
class App;
}

namespace autonotify::host {
class Desk;
}

namespace autonotify::console {

/// One command of the program. Commands that need a database get the desk at it; those with `list`
/// print their rows in the form that is asked for, and reply with what else there is to say.
struct Command {
  const char* name;
  const char* help;
  void (*describe)(CLI::App& command, Arguments& arguments);
  /// Exactly one of the three is set.
  Reply (*run)(host::Desk& desk, const Arguments& arguments) = nullptr;
  Reply (*runAlone)(const GlobalOptions& options, const Arguments& arguments) = nullptr;
  Reply (*list)(host::Desk& desk, const Arguments& arguments, RowForm form) = nullptr;
};

/// A command below a command: `template list`.
struct CommandAction {
  const char* name;
  const char* help;
  void (*describe)(CLI::App& command, Arguments& arguments);
  Reply (*run)(host::Desk& desk, const Arguments& arguments);
};

/// The one that is chosen is left in `arguments.action`. The actions must outlive the command.
void describeActions(CLI::App& command, std::span<const CommandAction> actions,
                     Arguments& arguments);

/// In the order of the help text.
std::span<const Command> allCommands();

}  // namespace autonotify::console
