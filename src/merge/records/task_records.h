#pragma once

#include <string>

#include "platform/Value.h"

namespace autonotify {

/// The task of a schedule entry, also of an archived one; -1 for none.
Id getTaskIDFromScheduleIDNum(Id scheduleID);

/// The documents and instructions of the task, a line each.
std::string getDocsAndInstructionsList(Id taskID);

}  // namespace autonotify
