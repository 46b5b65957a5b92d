#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// Calls onTimer every interval while it is enabled. The host that shows the window runs it.
class Timer : public Control {
 public:
  /// A timer starts disabled.
  Timer(ControlOwner& owner, std::string name, int interval)
      : Control(owner, std::move(name)), interval_(interval) {
    setEnabled(false);
  }
  bool takesFocus() const override { return false; }

  /// Milliseconds; 0 keeps the timer still.
  int interval() const { return interval_; }
  void setInterval(int interval) { change(interval_, interval, Aspect::state); }

  std::function<void()> onTimer;
  /// The interval is over.
  void fire() {
    if (enabled()) raise(onTimer);
  }

 private:
  int interval_;
};

}  // namespace autonotify
