#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// A text or picture that a person reads; it may react to a click and never has the focus.
class Label : public Control {
 public:
  using Control::Control;
  bool takesFocus() const override { return false; }
  bool acceptClick() override { return raise(onClick); }
};

}  // namespace autonotify
