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

/// Its unsent notifications and their tasks, as what stands behind FROM.
std::string unsentRowsOf(const ScheduleKind& kind);

/// Carries the template of the kind, named as requireScheduleKind takes it, into its unsent
/// notifications. `progress` hears of each that was looked at.
Outcome<Propagation> propagateTemplate(Desk& desk, const std::string& kind,
                                       const std::function<void(int done, int rows)>& progress);

}  // namespace autonotify::host
