#pragma once

#include <vector>

#include "Command.h"
#include "platform/Value.h"

namespace autonotify::console {

void describeTasks(CLI::App& command, Arguments& arguments);
/// Open tasks with their due dates and channels, by due date.
Reply runTasks(Session& session, const Arguments& arguments);

void describeDue(CLI::App& command, Arguments& arguments);
/// Unsent notifications dated today or before.
Reply runDue(Session& session, const Arguments& arguments);

/// The same as ids, by date; ahead of them the rows whose marking as sent was interrupted.
std::vector<Id> notificationsToSend(Session& session);

}  // namespace autonotify::console
