#pragma once

#include <QDateEdit>

#include "binding/Binding.h"
#include "platform/controls/DatePicker.h"

class QCalendarWidget;

namespace autonotify::desktop {

/// A calendar that drops down: the date is picked there, not typed.
class DateBinding : public BindingOf<DatePicker, QDateEdit> {
 public:
  DateBinding(Form& form, DatePicker& control, QDateEdit& widget);

 protected:
  void drawValue() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void watchCalendar(const QEvent& event);

  QCalendarWidget* calendar_ = nullptr;
};

/// The date as Qt has it, and back. The zero date is an invalid one.
QDate qtDate(DateTime date);
DateTime modelDate(const QDate& date);

}  // namespace autonotify::desktop
