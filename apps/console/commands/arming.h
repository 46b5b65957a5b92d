#pragma once

#include "Command.h"

namespace autonotify::console {

void describeArm(CLI::App& command, Arguments& arguments);
/// Adds the notifications and sets the tasks' bits. A channel that is armed already stays as it is;
/// one whose row lost its bit to an interrupted run gets it back.
Reply runArm(host::Desk& desk, const Arguments& arguments);

void describeDisarm(CLI::App& command, Arguments& arguments);
/// Deletes the rows and clears the bits. A row that was sent is only deleted with --force.
Reply runDisarm(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
