#include "binding/FrozenColumns.h"

#include <QScrollBar>

#include "SortHeader.h"

namespace autonotify::desktop {

FrozenColumns::FrozenColumns(QTableView& table) : QTableView(&table), table_(table) {
  setModel(table.model());
  setSelectionModel(table.selectionModel());
  setFocusPolicy(Qt::NoFocus);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(table.editTriggers());
  setSelectionBehavior(table.selectionBehavior());
  setSelectionMode(table.selectionMode());
  setVerticalScrollMode(table.verticalScrollMode());
  setContextMenuPolicy(table.contextMenuPolicy());
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  SortHeader& own = SortHeader::giveTo(*this);
  own.setFocusPolicy(Qt::NoFocus);
  auto& other = static_cast<SortHeader&>(*table.horizontalHeader());
  own.setMinimumSectionSize(other.minimumSectionSize());
  connect(this, &QTableView::clicked, &table, &QTableView::clicked);
  connect(&own, &QHeaderView::sectionClicked, &other, &QHeaderView::sectionClicked);
  connect(&other, &SortHeader::headingChanged, &own, &SortHeader::setCurrent);
  connect(&own, &QHeaderView::sectionResized, &table,
          [this](int column, int, int width) { table_.setColumnWidth(column, width); });
  connect(&other, &QHeaderView::sectionResized, this, &FrozenColumns::drawSizes);
  connect(&other, &QHeaderView::geometriesChanged, this, &FrozenColumns::drawSizes);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, table.verticalScrollBar(),
          &QScrollBar::setValue);
  connect(table.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(),
          &QScrollBar::setValue);
  connect(table.selectionModel(), &QItemSelectionModel::currentChanged, this,
          &FrozenColumns::uncover, Qt::QueuedConnection);
  table.viewport()->stackUnder(this);
  hide();
}

void FrozenColumns::showUpTo(int column) {
  last_ = column;
  setVisible(column >= 0);
  if (column < 0) return;
  const QHeaderView& drawn = *table_.horizontalHeader();
  QHeaderView& own = *horizontalHeader();
  setItemDelegate(table_.itemDelegate());
  setAlternatingRowColors(table_.alternatingRowColors());
  setWordWrap(table_.wordWrap());
  verticalHeader()->setDefaultSectionSize(table_.verticalHeader()->defaultSectionSize());
  own.setSectionsClickable(drawn.sectionsClickable());
  own.setSortIndicatorShown(drawn.isSortIndicatorShown());
  own.setSortIndicator(drawn.sortIndicatorSection(), drawn.sortIndicatorOrder());
  for (int i = 0; i < model()->columnCount(); ++i)
    setColumnHidden(i, !holds(i) || table_.isColumnHidden(i));
  drawSizes();
}

void FrozenColumns::drawSizes() {
  if (last_ < 0) return;
  const QHeaderView& drawn = *table_.horizontalHeader();
  const QSignalBlocker quiet(horizontalHeader());
  int width = 0;
  for (int i = 0; i < model()->columnCount() && holds(i); ++i) {
    if (table_.isColumnHidden(i)) continue;
    setColumnWidth(i, table_.columnWidth(i));
    width += table_.columnWidth(i);
  }
  const QRect rows = table_.viewport()->geometry();
  horizontalHeader()->setFixedHeight(drawn.height());
  setGeometry(rows.left(), rows.top() - drawn.height(), qMin(width, rows.width()),
              rows.height() + drawn.height());
  viewport()->update();
}

void FrozenColumns::uncover(const QModelIndex& cell) {
  const int covered = width() - table_.visualRect(cell).left();
  if (!isVisible() || !cell.isValid() || holds(cell.column()) || covered <= 0) return;
  QScrollBar& bar = *table_.horizontalScrollBar();
  bar.setValue(bar.value() - covered);
}

}  // namespace autonotify::desktop
