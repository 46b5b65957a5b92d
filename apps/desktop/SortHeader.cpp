#include "SortHeader.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>
#include <QTreeView>
#include <optional>

namespace autonotify::desktop {
namespace {

/// In pixels: what a key adds to a column or takes from it.
constexpr int stepOfSize = 10;

std::optional<int> stepOf(const QKeyEvent& key, Qt::LayoutDirection direction) {
  const int right = direction == Qt::LeftToRight ? 1 : -1;
  if (key.key() == Qt::Key_Right) return right;
  if (key.key() == Qt::Key_Left) return -right;
  return std::nullopt;
}

bool isPress(const QKeyEvent& key) {
  return key.key() == Qt::Key_Space || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

SortHeader& SortHeader::giveTo(QTableView& table) {
  auto* header = new SortHeader(table);
  table.setHorizontalHeader(header);
  return *header;
}

SortHeader& SortHeader::giveTo(QTreeView& tree) {
  auto* header = new SortHeader(tree);
  tree.setHeader(header);
  return *header;
}

SortHeader::SortHeader(QAbstractItemView& table) : QHeaderView(Qt::Horizontal, &table) {
  setSectionsClickable(true);
  setHighlightSections(false);
  setFocusPolicy(Qt::TabFocus);
  setAccessibleName(tr("Headings"));
  setTabOrder(&table, this);
}

void SortHeader::setCurrent(int section) {
  if (section == current_ || (section >= 0 && isSectionHidden(section))) return;
  current_ = section;
  viewport()->update();
  emit headingChanged(section);
  if (section < 0) return;
  uncover(section);
  setAccessibleName(nameOf(section));
  QAccessibleEvent told(this, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&told);
}

QString SortHeader::nameOf(int section) const {
  QVariant text = model()->headerData(section, Qt::Horizontal, Qt::AccessibleTextRole);
  if (!text.isValid()) text = model()->headerData(section, Qt::Horizontal);
  if (!isSortIndicatorShown() || sortIndicatorSection() != section) return text.toString();
  return (sortIndicatorOrder() == Qt::AscendingOrder ? tr("%1, in ascending order")
                                                     : tr("%1, in descending order"))
      .arg(text.toString());
}

int SortHeader::shownBeside(int visualIndex, int step) const {
  for (int i = visualIndex + step; i >= 0 && i < count(); i += step)
    if (!isSectionHidden(logicalIndex(i))) return logicalIndex(i);
  return -1;
}

void SortHeader::focusInEvent(QFocusEvent* event) {
  QHeaderView::focusInEvent(event);
  const int sorted = sortIndicatorSection();
  const bool isSortShown = sorted >= 0 && sorted < count() && !isSectionHidden(sorted);
  setCurrent(isSortShown ? sorted : shownBeside(-1, 1));
}

void SortHeader::focusOutEvent(QFocusEvent* event) {
  QHeaderView::focusOutEvent(event);
  setCurrent(-1);
}

void SortHeader::keyPressEvent(QKeyEvent* event) {
  const auto step = stepOf(*event, layoutDirection());
  if (current_ < 0 || (!step && !isPress(*event))) return event->ignore();
  if (!step) return press();
  if (event->modifiers() & Qt::ShiftModifier) {
    if (sectionResizeMode(current_) == Interactive)
      resizeSection(current_, sectionSize(current_) + *step * stepOfSize);
    return;
  }
  const int next = shownBeside(visualIndex(current_), *step);
  if (next >= 0) setCurrent(next);
}

void SortHeader::press() {
  if (!sectionsClickable()) return;
  const int section = current_;
  const bool isAscending =
      sortIndicatorSection() == section && sortIndicatorOrder() == Qt::AscendingOrder;
  setSortIndicator(section, isAscending ? Qt::DescendingOrder : Qt::AscendingOrder);
  emit sectionClicked(section);
  setAccessibleName(nameOf(section));
}

void SortHeader::uncover(int section) {
  auto* table = qobject_cast<QAbstractItemView*>(parentWidget());
  if (!table || table->horizontalScrollMode() != ScrollPerPixel) return;
  QScrollBar& bar = *table->horizontalScrollBar();
  const int left = sectionViewportPosition(section);
  const int beyond = left + sectionSize(section) - viewport()->width();
  if (left < 0 || beyond > 0) bar.setValue(bar.value() + (left < 0 ? left : beyond));
}

void SortHeader::paintSection(QPainter* painter, const QRect& place, int section) const {
  painter->save();
  QHeaderView::paintSection(painter, place, section);
  painter->restore();
  if (section != current_) return;
  painter->setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter->drawRect(place.adjusted(1, 1, -1, -1));
}

}  // namespace autonotify::desktop
