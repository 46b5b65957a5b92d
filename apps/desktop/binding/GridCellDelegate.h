#pragma once

#include <QStyledItemDelegate>

#include "binding/GridLook.h"
#include "platform/controls/Grid.h"

namespace autonotify::desktop {

/// Paints the cells of a grid: ticks and buttons as the style has them, without a widget. The
/// current row has a frame, rows that are done step back, and days that have passed stand out.
class GridCellDelegate : public QStyledItemDelegate {
 public:
  /// `grid` outlives the delegate.
  explicit GridCellDelegate(const Grid& grid, GridLook look = {})
      : grid_(grid), look_(std::move(look)) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  enum class Standing { open, late, done };

  Standing standingOf(const QModelIndex& cell, const QWidget* table) const;

  const Grid& grid_;
  GridLook look_;
};

}  // namespace autonotify::desktop
