#pragma once

#include <QAbstractTableModel>

#include "binding/GridLook.h"
#include "platform/controls/Grid.h"

namespace autonotify::desktop {

/// The cells of a grid as Qt's views ask for them: only for those that are on the screen. There are
/// as many rows and columns as when the views were told last; a cell that has gone since is empty.
class GridTableModel : public QAbstractTableModel {
 public:
  /// `grid` outlives the model.
  explicit GridTableModel(const Grid& grid, GridLook look = {})
      : grid_(grid), look_(std::move(look)) {}

  /// Everything is another.
  void reload();
  /// Shows no rows until the next reload.
  void clear();
  void showChange(const RowChange& change);
  void showHeadings();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  /// A tick has a check state and no text.
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  bool isThere(int row, int column) const {
    return row < grid_.get_Rows() && column < grid_.get_Cols();
  }

  /// As it is read out: what a cell of this row does, and whether it is ticked.
  QString spokenText(int row, int column) const;

  const Grid& grid_;
  GridLook look_;
  int rows_ = 0;
  int columns_ = 0;
};

}  // namespace autonotify::desktop
