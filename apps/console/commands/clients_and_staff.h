#pragma once

#include "Command.h"

namespace autonotify::console {

void describeClients(CLI::App& command, Arguments& arguments);
/// Whom the firm works for.
Reply listAllClients(host::Desk& desk, const Arguments& arguments, RowForm form);

void describeStaff(CLI::App& command, Arguments& arguments);
/// Who works there.
Reply listAllStaff(host::Desk& desk, const Arguments& arguments, RowForm form);

}  // namespace autonotify::console
