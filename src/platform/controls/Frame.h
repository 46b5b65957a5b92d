#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// A group of controls, which are shown and enabled only as far as the group is.
class Frame : public Control {
 public:
  using Control::Control;
  bool takesFocus() const override { return false; }
};

}  // namespace autonotify
