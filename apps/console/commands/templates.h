#pragma once

#include "Command.h"

namespace autonotify::console {

void describePropagate(CLI::App& command, Arguments& arguments);
/// Carries a kind's template into its unsent notifications; without a kind, lists the kinds.
Reply runPropagate(host::Desk& desk, const Arguments& arguments);

void describeFields(CLI::App& command, Arguments& arguments);
/// The fields that a template can be filled with.
Reply runFields(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
