#include "binding/CalendarButton.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QIcon>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace autonotify::desktop {

CalendarButton::CalendarButton(QWidget* parent)
    : QToolButton(parent),
      popUp_(new QFrame(this, Qt::Popup)),
      calendar_(new QCalendarWidget(popUp_)),
      date_(QDate::currentDate()) {
  setIcon(QIcon::fromTheme("view-calendar-day"));
  setToolTip(tr("Choose the date in a calendar"));
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  popUp_->setFrameShape(QFrame::StyledPanel);
  // A click on the button closes the calendar, and does not open it again.
  popUp_->setAttribute(Qt::WA_NoMouseReplay);
  popUp_->installEventFilter(this);
  auto* layout = new QVBoxLayout(popUp_);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->addWidget(calendar_);
  calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  connect(calendar_, &QCalendarWidget::clicked, this, &CalendarButton::pick);
  connect(calendar_, &QCalendarWidget::activated, this, &CalendarButton::pick);
}

void CalendarButton::setDate(QDate date) {
  date_ = date;
  calendar_->setSelectedDate(date);
}

void CalendarButton::dropDown() {
  popUp_->adjustSize();
  popUp_->move(placeOfCalendar());
  popUp_->show();
  calendar_->setFocus(Qt::PopupFocusReason);
}

QPoint CalendarButton::placeOfCalendar() const {
  const QSize size = popUp_->size();
  const QRect room = screen()->availableGeometry();
  QPoint place = mapToGlobal(rect().bottomLeft());
  if (place.y() + size.height() > room.bottom())
    place.setY(mapToGlobal(rect().topLeft()).y() - size.height());
  place.setX(
      std::clamp(place.x(), room.left(), std::max(room.right() - size.width(), room.left())));
  place.setY(std::max(place.y(), room.top()));
  return place;
}

void CalendarButton::pick(QDate date) {
  date_ = date;
  popUp_->hide();
}

void CalendarButton::keyPressEvent(QKeyEvent* event) {
  const QList<int> keys{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Down, Qt::Key_F4};
  if (keys.contains(event->key()) && !event->isAutoRepeat()) return click();
  QToolButton::keyPressEvent(event);
}

bool CalendarButton::eventFilter(QObject* watched, QEvent* event) {
  if (watched == popUp_ && event->type() == QEvent::Hide) {
    calendar_->setSelectedDate(date_);
    emit closed(date_);
  }
  return QToolButton::eventFilter(watched, event);
}

}  // namespace autonotify::desktop
