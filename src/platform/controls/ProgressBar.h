#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// How far a long work has come.
class ProgressBar : public Control {
 public:
  using Control::Control;
  bool takesFocus() const override { return false; }

  int minimum() const { return minimum_; }
  void setMinimum(int minimum) { change(minimum_, minimum, Aspect::value); }
  int maximum() const { return maximum_; }
  void setMaximum(int maximum) { change(maximum_, maximum, Aspect::value); }
  int value() const { return value_; }
  /// A value outside the range is drawn at its nearer end.
  void setValue(int value) { change(value_, value, Aspect::value); }

 private:
  int minimum_ = 0;
  int maximum_ = 100;
  int value_ = 0;
};

}  // namespace autonotify
