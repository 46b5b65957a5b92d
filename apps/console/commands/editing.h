#pragma once

#include "Command.h"

namespace autonotify::console {

void describeTemplate(CLI::App& command, Arguments& arguments);
/// Lists, shows, changes and tries the templates of kinds.
Reply runTemplate(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
