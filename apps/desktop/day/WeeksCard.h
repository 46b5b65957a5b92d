#pragma once

#include "day/Card.h"
#include "host/desk/work/working_day.h"

class QGridLayout;

namespace autonotify::desktop {

class WeeksChart;

/// The weeks ahead as a picture, and below it the same in figures by channel.
class WeeksCard : public Card {
  Q_OBJECT

 public:
  explicit WeeksCard(QWidget* parent);

  void showDay(const host::WorkingDay& day);

 signals:
  void weekChosen(DateTime monday);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  /// A channel's line of the table.
  struct Line {
    notifyType channel;
    QLabel* square;
    QLabel* icon;
    QLabel* thisWeek;
    QLabel* allWeeks;
  };

  void addLine(QGridLayout& table, notifyType channel);
  void colour();

  QLabel* total_;
  WeeksChart* chart_;
  std::vector<Line> lines_;
};

}  // namespace autonotify::desktop
