#include "binding/GridTotals.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

namespace autonotify::desktop {
namespace {

constexpr int roomAround = 4;

}  // namespace

GridTotals::GridTotals(const Grid& grid, QTableView& table)
    : QWidget(table.parentWidget()), grid_(grid), table_(table) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  const QAbstractItemModel& model = *table.model();
  connect(&model, &QAbstractItemModel::modelReset, this, &GridTotals::forget);
  connect(&model, &QAbstractItemModel::dataChanged, this, &GridTotals::forget);
  connect(&model, &QAbstractItemModel::rowsInserted, this, &GridTotals::forget);
  connect(&model, &QAbstractItemModel::rowsRemoved, this, &GridTotals::forget);
  connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, [this] { update(); });
  connect(table.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
}

void GridTotals::forget() {
  ticks_.clear();
  update();
}

QSize GridTotals::sizeHint() const {
  return {0, fontMetrics().height() + 2 * roomAround};
}

int GridTotals::ticksIn(int column) const {
  const auto [found, isNew] = ticks_.try_emplace(column, 0);
  for (int row = 0; isNew && row < grid_.get_Rows(); ++row)
    found->second += grid_.get_cellChecked(row, column);
  return found->second;
}

/// The first column that shows says how many rows there are.
QString GridTotals::totalOf(int column) const {
  int first = 0;
  while (first < column && !grid_.showsColumn(first)) ++first;
  if (column == first && grid_.showsColumn(column))
    return QObject::tr("Rows: %L1").arg(grid_.get_Rows());
  return grid_.get_colType(column) == grid_column::tick ? QString("%L1").arg(ticksIn(column))
                                                        : QString();
}

void GridTotals::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QHeaderView& header = *table_.horizontalHeader();
  for (int column = 0; column < qMin(grid_.get_Cols(), header.count()); ++column) {
    if (header.isSectionHidden(column)) continue;
    const bool isTick = grid_.get_colType(column) == grid_column::tick;
    const int at = header.sectionViewportPosition(column);
    const QRect cell(isTick ? at : qMax(at, 0), 0, header.sectionSize(column), height());
    painter.drawText(
        cell.translated(table_.viewport()->x(), 0).adjusted(roomAround, 0, -roomAround, 0),
        Qt::TextDontClip | Qt::AlignVCenter | (isTick ? Qt::AlignHCenter : Qt::AlignLeft),
        totalOf(column));
  }
}

}  // namespace autonotify::desktop
