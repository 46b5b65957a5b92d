#pragma once

#include "platform/Clock.h"

namespace autonotify::test {

/// A clock that stands still until it is set.
class FixedClock : public Clock {
 public:
  DateTime now() override { return now_; }
  void set(DateTime now) { now_ = now; }

 private:
  DateTime now_ = DateTime::of(2026, 4, 15, 9, 30);
};

}  // namespace autonotify::test
