#pragma once

#include "host/desk/Outcome.h"

namespace autonotify::host {

/// The day if the firm is open then, otherwise the last open day before it.
Outcome<DateTime> lastWorkingDay(Desk& desk, DateTime day);

}  // namespace autonotify::host
