#pragma once

#include "day/Card.h"
#include "host/desk/work/working_day.h"

class QPushButton;

namespace autonotify::desktop {

/// The client of a notification: how it is reached, and what it is told.
class ClientCardView : public Card {
  Q_OBJECT

 public:
  explicit ClientCardView(QWidget* parent);

  /// Null leaves the card empty. Throws DatabaseError.
  void showClient(host::Desk* desk, const host::DayLine* line);

 signals:
  void editWanted();
  void historyWanted();

 private:
  QLabel* addReach(const char* name, int channel);
  QPushButton* newButton(const char* name, const QString& text);

  QLabel* name_;
  QLabel* number_;
  QLabel* accountant_;
  QLabel* email_;
  QLabel* phone_;
  QLabel* text_;
};

}  // namespace autonotify::desktop
