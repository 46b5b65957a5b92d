#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// A command: a click does something.
class Button : public Control {
 public:
  using Control::Control;
  bool acceptClick() override { return raise(onClick); }
};

}  // namespace autonotify
