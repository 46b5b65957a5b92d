#pragma once

#include <optional>

#include "platform/Clock.h"

namespace autonotify::host {

/// The machine's local date and time.
class SystemClock : public Clock {
 public:
  DateTime now() override;
};

/// Another clock moved by whole days. The time of day is the other clock's, and midnight goes on to
/// the next day.
class DateShiftedClock : public Clock {
 public:
  /// `base` must outlive this object; it is not moved without a day.
  explicit DateShiftedClock(Clock& base, std::optional<DateTime> day = {}) : base_(base) {
    if (day) show(*day);
  }
  DateTime now() override { return base_.now().addDays(shift_); }
  /// From here on it shows the day.
  void show(DateTime day) { shift_ = day.days() - base_.now().days(); }

 private:
  friend class ShownDay;

  Clock& base_;
  std::int32_t shift_ = 0;
};

/// While it lives the clock shows another day.
class ShownDay {
 public:
  ShownDay(DateShiftedClock& clock, DateTime day) : clock_(clock), shift_(clock.shift_) {
    clock_.show(day);
  }
  ~ShownDay() { clock_.shift_ = shift_; }
  ShownDay(const ShownDay&) = delete;
  ShownDay& operator=(const ShownDay&) = delete;

 private:
  DateShiftedClock& clock_;
  std::int32_t shift_;
};

}  // namespace autonotify::host
