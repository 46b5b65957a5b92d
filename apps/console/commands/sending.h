#pragma once

#include "Command.h"

namespace autonotify::console {

void describeSend(CLI::App& command, Arguments& arguments);
/// Puts emails into the outbox and marks them sent; what stays behind is listed with its reason.
///
/// A message has one name in the outbox for all time. A run that was killed between the outbox and
/// the mark is made good by the next: the message is found there, nothing is sent again, and the
/// row is marked.
Reply runSend(Session& session, const Arguments& arguments);

}  // namespace autonotify::console
