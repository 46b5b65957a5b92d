#pragma once

#include "platform/Clock.h"

namespace autonotify::host {

/// The machine's local date and time.
class SystemClock : public Clock {
 public:
  DateTime now() override;
};

/// Another clock moved by whole days, so that it showed the day `today` when this one was made. The
/// time of day is the other clock's, and midnight goes on to the next day.
class DateShiftedClock : public Clock {
 public:
  /// `base` must outlive this object.
  DateShiftedClock(Clock& base, DateTime today)
      : base_(base), shift_(today.days() - base.now().days()) {}
  DateTime now() override { return base_.now().addDays(shift_); }

 private:
  Clock& base_;
  std::int32_t shift_;
};

}  // namespace autonotify::host
