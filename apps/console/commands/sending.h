#pragma once

#include "Command.h"

namespace autonotify::console {

void describeSend(CLI::App& command, Arguments& arguments);
/// Puts emails into the outbox and marks them sent; what stays behind is listed with its reason.
///
/// A message has one name in the outbox for all time. A run that was killed between the outbox and
/// the mark is made good by the next: the message is found there, nothing is sent again, and the
/// row is marked. A row that is half marked although its message is not there was marked by another
/// program: whether it was sent cannot be known, and a person settles it by --mark-only or --again.
Reply runSend(Session& session, const Arguments& arguments);

}  // namespace autonotify::console
