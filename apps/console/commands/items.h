#pragma once

#include "Command.h"

namespace autonotify::console {

void describeAppointments(CLI::App& command, Arguments& arguments);
/// What stands in the diary, from today on unless told otherwise, with the numbers that arm-item
/// takes.
Reply listAppointments(host::Desk& desk, const Arguments& arguments, RowForm form);

void describeArmItem(CLI::App& command, Arguments& arguments);
/// Reminds the item's client by the channels. The reminder falls due on the last working day before
/// the item unless a date is given; that of a task is worked out as `arm` does.
Reply runArmItem(host::Desk& desk, const Arguments& arguments);

void describeDisarmItem(CLI::App& command, Arguments& arguments);
Reply runDisarmItem(host::Desk& desk, const Arguments& arguments);

}  // namespace autonotify::console
