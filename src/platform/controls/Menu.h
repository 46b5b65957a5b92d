#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// A menu or an entry of one: the entries are the menus whose container it is.
class Menu : public Control {
 public:
  using Control::Control;
  bool takesFocus() const override { return false; }

  /// A tick beside the caption.
  bool checked() const { return checked_; }
  void setChecked(bool checked) { change(checked_, checked, Aspect::value); }
  bool acceptClick() override { return raise(onClick); }

 private:
  bool checked_ = false;
};

}  // namespace autonotify
