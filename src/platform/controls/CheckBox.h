#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// A box that is ticked or not. Every change of the tick raises the click, the program's too.
class CheckBox : public Control {
 public:
  using Control::Control;

  bool value() const { return value_; }
  void setValue(bool ticked) {
    if (change(value_, ticked, Aspect::value)) raise(onClick);
  }
  bool acceptClick() override {
    setValue(!value_);
    return true;
  }

 private:
  bool value_ = false;
};

}  // namespace autonotify
