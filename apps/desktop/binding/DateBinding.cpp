#include "binding/DateBinding.h"

namespace autonotify::desktop {
namespace {

const QDate dayZero(1899, 12, 30);

}  // namespace

DateBinding::DateBinding(Form& form, DatePicker& control, CalendarButton& widget)
    : BindingOf(form, control, widget) {
  connect(&widget, &CalendarButton::clicked, this, &DateBinding::dropDown);
  // The calendar goes first: what follows may ask a question.
  connect(
      &widget, &CalendarButton::closed, this,
      [this](QDate date) {
        pass([=, this](Person& person) { person.closeUp(control_, modelDate(date)); });
      },
      Qt::QueuedConnection);
}

void DateBinding::drawValue() {
  const QDate date = qtDate(control_.value());
  if (date.isValid()) widget_.setDate(date);
}

void DateBinding::dropDown() {
  bool isOpen = false;
  pass([&](Person& person) { isOpen = person.dropDown(control_); });
  if (isOpen) widget_.dropDown();
}

QDate qtDate(DateTime date) {
  return date.isZero() ? QDate() : dayZero.addDays(date.days());
}

DateTime modelDate(const QDate& date) {
  return date.isValid() ? DateTime::fromSerial(static_cast<std::int32_t>(dayZero.daysTo(date)))
                        : DateTime();
}

}  // namespace autonotify::desktop
