#pragma once

#include "Command.h"

namespace autonotify::console {

void describeFirm(CLI::App& command, Arguments& arguments);
/// Stores what is given of the firm's details, and shows all of them.
Reply runFirm(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
