#pragma once

#include "platform/DateTime.h"

namespace autonotify {

/// The machine's local date and time as the host wants the component to see them.
class Clock {
 public:
  virtual ~Clock() = default;
  /// To the second.
  virtual DateTime now() = 0;
  /// Midnight of the current day.
  DateTime today() { return now().dateOnly(); }
};

}  // namespace autonotify
