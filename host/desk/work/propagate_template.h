#pragma once

#include <functional>

#include "host/desk/Outcome.h"
#include "host/desk/rows/ScheduleKind.h"

namespace autonotify::host {

struct Propagation {
  ScheduleKind kind;
  /// Unsent notifications that were composed anew, and those of personal clients, which keep their
  /// texts.
  std::size_t composed = 0;
  std::size_t left = 0;
};

/// Carries the template of the kind into its unsent notifications. `progress` hears of each that
/// was looked at.
Outcome<Propagation> propagateTemplate(Desk& desk, Id kind,
                                       const std::function<void(int done, int rows)>& progress);

}  // namespace autonotify::host
