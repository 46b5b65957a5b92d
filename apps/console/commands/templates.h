#pragma once

#include "Command.h"

namespace autonotify::console {

void describePropagate(CLI::App& command, Arguments& arguments);
/// Carries a kind's template into its unsent notifications; without a kind, lists the kinds.
Reply runPropagate(Session& session, const Arguments& arguments);

void describeFields(CLI::App& command, Arguments& arguments);
/// The fields that a template can be filled with.
Reply runFields(Session& session, const Arguments& arguments);

}  // namespace autonotify::console
