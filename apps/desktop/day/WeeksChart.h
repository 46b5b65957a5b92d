#pragma once

#include <QtCharts/QChartView>
#include <vector>

#include "host/desk/work/working_day.h"

class QBarCategoryAxis;
class QBarSet;
class QGraphicsSimpleTextItem;
class QStackedBarSeries;
class QValueAxis;

namespace autonotify::desktop {

/// A channel's part of the bars.
struct WeeksSeries {
  notifyType channel;
  QColor color;
};
/// From the bottom of the bars upwards.
std::vector<WeeksSeries> weeksSeries(const QPalette& palette);

/// The weeks ahead as bars, a part for each channel. A bar is chosen with the mouse, or by the
/// arrows and Enter.
class WeeksChart : public QChartView {
  Q_OBJECT

 public:
  explicit WeeksChart(QWidget* parent);

  void showDay(const host::WorkingDay& day);

 signals:
  void chosen(DateTime monday);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void colour();
  void placeWords();
  void showCurrent();
  void choose(int week);

  std::vector<host::WeekAhead> weeks_;
  std::vector<QBarSet*> sets_;
  QStackedBarSeries* series_;
  QBarCategoryAxis* weeksAxis_;
  QValueAxis* countAxis_;
  /// Below the bars, and above two of them.
  std::vector<QGraphicsSimpleTextItem*> labels_;
  std::vector<QGraphicsSimpleTextItem*> totals_;
  /// On which the keys act; none without the focus.
  int current_ = 0;
};

}  // namespace autonotify::desktop
