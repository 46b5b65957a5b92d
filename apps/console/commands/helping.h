#pragma once

#include "Command.h"

namespace autonotify::console {

/// What help can be written as besides.
struct HelpForm {
  const char* word;
  std::string (*write)(const CLI::App& program);
};

void describeHelp(CLI::App& command, Arguments& arguments);
/// Tells about the program or one of its commands.
Reply runHelp(const GlobalOptions& options, const Arguments& arguments);

}  // namespace autonotify::console
