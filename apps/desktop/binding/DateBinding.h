#pragma once

#include <QDate>

#include "binding/Binding.h"
#include "binding/CalendarButton.h"
#include "platform/controls/DatePicker.h"

namespace autonotify::desktop {

/// The date is picked in a calendar, not typed.
class DateBinding : public BindingOf<DatePicker, CalendarButton> {
 public:
  DateBinding(Form& form, DatePicker& control, CalendarButton& widget);

 protected:
  void drawValue() override;

 private:
  void dropDown();
};

/// The date as Qt has it, and back. The zero date is an invalid one.
QDate qtDate(DateTime date);
DateTime modelDate(const QDate& date);

}  // namespace autonotify::desktop
