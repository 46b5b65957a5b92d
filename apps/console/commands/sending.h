#pragma once

#include "Command.h"

namespace autonotify::console {

void describeSend(CLI::App& command, Arguments& arguments);
/// Sends the notifications named, or all that is due; what stays behind is listed with its reason.
Reply listSent(host::Desk& desk, const Arguments& arguments, RowForm form);

}  // namespace autonotify::console
