#pragma once

#include "Command.h"

namespace autonotify::console {

void describeCancel(CLI::App& command, Arguments& arguments);
/// A cancelled notification is not sent any more.
Reply runCancel(host::Desk& desk, const Arguments& arguments);

void describeMove(CLI::App& command, Arguments& arguments);
/// Another date for a notification that has not been sent.
Reply runMove(host::Desk& desk, const Arguments& arguments);

void describeRefresh(CLI::App& command, Arguments& arguments);
/// Works out the dates of a task's notifications anew, after its due date or kind has changed.
Reply runRefresh(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
