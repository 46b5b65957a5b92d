#pragma once

#include <QDate>
#include <QToolButton>

class QCalendarWidget;
class QFrame;

namespace autonotify::desktop {

/// A button beside a date, with a calendar that drops down.
class CalendarButton : public QToolButton {
  Q_OBJECT

 public:
  explicit CalendarButton(QWidget* parent = nullptr);

  QDate date() const { return date_; }
  /// The calendar shows the date.
  void setDate(QDate date);
  QCalendarWidget& calendar() { return *calendar_; }
  void dropDown();

 signals:
  /// The calendar has gone; the date is the one before where nothing was picked.
  void closed(QDate date);

 protected:
  /// Keys that open a list open the calendar too.
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void pick(QDate date);
  /// Below the button; above it where there is no room.
  QPoint placeOfCalendar() const;

  QFrame* popUp_;
  QCalendarWidget* calendar_;
  QDate date_;
};

}  // namespace autonotify::desktop
