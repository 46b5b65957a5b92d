#pragma once

#include "platform/controls/Control.h"

namespace autonotify {

/// A menu or an entry of one: the entries are the menus whose container it is. A menu that pops up
/// need not be visible itself.
class Menu : public Control {
 public:
  using Control::Control;
  bool takesFocus() const override { return false; }
  bool showsInside(int) const override { return true; }

  /// A tick beside the caption.
  bool checked() const { return checked_; }
  void setChecked(bool checked) { change(checked_, checked, Aspect::value); }
  bool acceptClick() override { return raise(onClick); }

 private:
  bool checked_ = false;
};

}  // namespace autonotify
