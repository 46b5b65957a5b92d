#include "binding/DateBinding.h"

#include <QCalendarWidget>
#include <QEvent>
#include <QKeyEvent>

namespace autonotify::desktop {
namespace {

const QDate dayZero(1899, 12, 30);
constexpr const char* narrowest = "00/00/00";

/// Of a field that is too narrow for it: the calendar alone is used.
void hideText(QWidget& field) {
  QPalette palette = field.palette();
  for (const auto role : {QPalette::Text, QPalette::Highlight, QPalette::HighlightedText})
    palette.setColor(role, Qt::transparent);
  field.setPalette(palette);
}

/// What would change the date without the calendar.
bool changesDate(const QEvent& event) {
  if (event.type() == QEvent::Wheel) return true;
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key != Qt::Key_Tab && key != Qt::Key_Backtab;
}

}  // namespace

DateBinding::DateBinding(Form& form, DatePicker& control, QDateEdit& widget)
    : BindingOf(form, control, widget) {
  widget.setCalendarPopup(true);
  if (widget.maximumWidth() < widget.fontMetrics().horizontalAdvance(narrowest)) hideText(widget);
  calendar_ = widget.calendarWidget();
  calendar_->installEventFilter(this);
}

void DateBinding::drawValue() {
  const QDate date = qtDate(control_.value());
  if (!date.isValid()) return;
  widget_.setDate(date);
  calendar_->setSelectedDate(date);
}

bool DateBinding::eventFilter(QObject* watched, QEvent* event) {
  if (watched == calendar_) {
    watchCalendar(*event);
    return false;
  }
  return changesDate(*event) || Binding::eventFilter(watched, event);
}

void DateBinding::watchCalendar(const QEvent& event) {
  if (event.type() == QEvent::Show) pass([this](Person& person) { person.dropDown(control_); });
  if (event.type() != QEvent::Hide) return;
  // The calendar goes first: what follows may ask a question.
  const DateTime picked = modelDate(calendar_->selectedDate());
  QMetaObject::invokeMethod(
      this, [=, this] { pass([&](Person& person) { person.closeUp(control_, picked); }); },
      Qt::QueuedConnection);
}

QDate qtDate(DateTime date) {
  return date.isZero() ? QDate() : dayZero.addDays(date.days());
}

DateTime modelDate(const QDate& date) {
  return date.isValid() ? DateTime::fromSerial(static_cast<std::int32_t>(dayZero.daysTo(date)))
                        : DateTime();
}

}  // namespace autonotify::desktop
