#include "day/DayView.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "SortHeader.h"
#include "colors.h"
#include "day/DayDelegate.h"
#include "day/DayFilter.h"
#include "day/DayModel.h"
#include "day/day_formats.h"

namespace autonotify::desktop {
namespace {

constexpr int frameOfCurrentRow = 2;
constexpr int roomBesideDay = 16;
/// In characters.
constexpr int leastName = 16;

}  // namespace

DayView::DayView(DayFilter& rows, QWidget* parent) : QTreeView(parent) {
  setModel(&rows);
  setItemDelegate(new DayDelegate(rows, this));
  setUniformRowHeights(true);
  setIndentation(fontMetrics().height());
  setExpandsOnDoubleClick(false);
  setEditTriggers(NoEditTriggers);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  SortHeader& headings = SortHeader::giveTo(*this);
  headings.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  headings.setSortIndicator(-1, Qt::AscendingOrder);
  setSortingEnabled(true);
  connect(&rows, &QAbstractItemModel::modelReset, this, &DayView::spanGroups);
}

void DayView::goToFirstRow() {
  for (int group = 0; group < model()->rowCount(); ++group) {
    const QModelIndex first = model()->index(0, 0, model()->index(group, 0));
    if (!first.isValid()) continue;
    setCurrentIndex(first);
    break;
  }
  setFocus(Qt::OtherFocusReason);
}

void DayView::spanGroups() {
  for (int group = 0; group < model()->rowCount(); ++group) setFirstColumnSpanned(group, {}, true);
  expandAll();
}

void DayView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (isLine(currentIndex())) return emit pressed();
      return setExpanded(currentIndex(), !isExpanded(currentIndex()));
    default:
      return QTreeView::keyPressEvent(event);
  }
}

void DayView::mouseReleaseEvent(QMouseEvent* event) {
  QTreeView::mouseReleaseEvent(event);
  const QModelIndex index = indexAt(event->position().toPoint());
  const bool isButton = isLine(index) && index.column() == DayModel::act;
  if (event->button() == Qt::LeftButton && isButton && index.row() == currentIndex().row() &&
      index.parent() == currentIndex().parent())
    emit pressed();
}

void DayView::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  layOut();
}

void DayView::changeEvent(QEvent* event) {
  QTreeView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) layOut();
}

/// Names take what the others leave. Where that is too little, columns go that a row can do
/// without.
void DayView::layOut() {
  const QFontMetrics font = fontMetrics();
  const int day = font.horizontalAdvance(shortDate(QDate(2026, 9, 30))) + roomBesideDay;
  const std::pair<int, int> fixed[] = {{DayModel::due, day},
                                       {DayModel::notifyOn, day},
                                       {DayModel::channel, 2 * font.height()},
                                       {DayModel::state, DayDelegate::chipColumnWidth(font)},
                                       {DayModel::act, DayDelegate::buttonColumnWidth(font)}};
  const int names = 2 * leastName * font.averageCharWidth();
  int rest = viewport()->width();
  for (const auto& [column, width] : fixed) {
    setColumnWidth(column, width);
    rest -= width;
  }
  for (const auto& [column, width] : fixed) {
    const bool isDispensable = column == DayModel::due || column == DayModel::state;
    setColumnHidden(column, isDispensable && rest < names);
    if (isColumnHidden(column)) rest += width;
  }
  setColumnWidth(DayModel::client, rest / 2);
  setColumnWidth(DayModel::task, rest - rest / 2);
}

void DayView::drawBranches(QPainter* painter, const QRect& place, const QModelIndex& index) const {
  if (!isLine(index)) return QTreeView::drawBranches(painter, place, index);
  if (!selectionModel()->isSelected(index)) return;
  painter->fillRect(place, softAccentOn(palette().color(QPalette::Base), palette()));
}

void DayView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const {
  QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
  if (!isLine(index)) painter->fillRect(row, palette().color(QPalette::AlternateBase));
  QTreeView::drawRow(painter, option, index);
  painter->setPen(palette().color(QPalette::Midlight));
  painter->drawLine(row.bottomLeft(), row.bottomRight());
  if (index.siblingAtColumn(0) != currentIndex().siblingAtColumn(0) || !hasFocus()) return;
  painter->setPen(QPen(palette().color(QPalette::Highlight), frameOfCurrentRow));
  painter->drawRect(row.adjusted(1, 1, -1, -1));
}

}  // namespace autonotify::desktop
