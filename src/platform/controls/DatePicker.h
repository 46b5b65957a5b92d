#pragma once

#include "platform/DateTime.h"
#include "platform/controls/Control.h"

namespace autonotify {

/// A date with a calendar that drops down.
class DatePicker : public Control {
 public:
  using Control::Control;

  DateTime value() const { return value_; }
  void setValue(DateTime value) {
    if (change(value_, value, Aspect::value)) raise(onChange);
  }

  std::function<void()> onDropDown;
  std::function<void()> onCloseUp;

  /// A person opens the calendar.
  void acceptDropDown() { raise(onDropDown); }
  /// A person picks a date in it, which closes it.
  void acceptDate(DateTime picked) {
    setValue(picked);
    raise(onCloseUp);
  }

 private:
  DateTime value_;
};

}  // namespace autonotify
