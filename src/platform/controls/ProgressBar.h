#pragma once

#include <cstdint>
#include <utility>

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
  /// A value outside the range is drawn at its nearer end. The bar is drawn anew when it moves by a
  /// thousandth of its length: a work of many steps costs no more to show than one of few.
  void setValue(int value) {
    const int before = std::exchange(value_, value);
    if (thousandths(before) != thousandths(value)) render(Aspect::value);
  }

 private:
  std::int64_t thousandths(int value) const {
    const std::int64_t length = std::int64_t{maximum_} - minimum_;
    return length > 0 ? (std::int64_t{value} - minimum_) * 1000 / length : 0;
  }

  int minimum_ = 0;
  int maximum_ = 100;
  int value_ = 0;
};

}  // namespace autonotify
