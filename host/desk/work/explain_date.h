#pragma once

#include <string>

#include "host/desk/Outcome.h"
#include "host/desk/rows/Task.h"

namespace autonotify::host {

struct ExplainedDate {
  Task task;
  std::string client;
  /// The name of its kind; empty for one without a name.
  std::string kind;
  DateExplanation why;
};

/// Why a notification of the task would get its date. Changes nothing.
Outcome<ExplainedDate> explainDate(Desk& desk, Id task);

}  // namespace autonotify::host
