#pragma once

#include <QTableView>
#include <map>

#include "platform/controls/Grid.h"

namespace autonotify::desktop {

/// The line of totals of a grid: how many rows there are, and how many are ticked in each column of
/// ticks, below the columns.
class GridTotals : public QWidget {
 public:
  /// Both outlive the line; `table` has its model.
  GridTotals(const Grid& grid, QTableView& table);

  QString totalOf(int column) const;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void forget();
  int ticksIn(int column) const;

  const Grid& grid_;
  QTableView& table_;
  /// Of the columns that were asked for since something changed.
  mutable std::map<int, int> ticks_;
};

}  // namespace autonotify::desktop
