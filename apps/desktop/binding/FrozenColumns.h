#pragma once

#include <QTableView>

namespace autonotify::desktop {

/// The first columns of a table, drawn above it, so that they stay in sight while the others
/// scroll. What a person does here, the table tells.
class FrozenColumns : public QTableView {
 public:
  /// `table` has its model, and owns this.
  explicit FrozenColumns(QTableView& table);

  /// Up to the column, as the table draws them at present; -1 for none.
  void showUpTo(int column);
  bool holds(int column) const { return column <= last_; }

 private:
  void drawSizes();
  /// Moves the cell out from below.
  void uncover(const QModelIndex& cell);

  QTableView& table_;
  int last_ = -1;
};

}  // namespace autonotify::desktop
