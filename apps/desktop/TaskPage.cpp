#include "TaskPage.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>
#include <utility>

#include "SortHeader.h"

namespace autonotify::desktop {
namespace {

/// Of names, where a narrow window leaves them less.
constexpr int leastCharacters = 12;
/// As many characters wide as the widest text; the names share what these leave.
constexpr std::pair<TaskTableModel::Column, int> columnWidths[] = {
    {TaskTableModel::dueDate, 13},
    {TaskTableModel::notificationDate, 13},
    {TaskTableModel::channels, 17},
    {TaskTableModel::state, 13}};

}  // namespace

TaskPage::TaskPage(QWidget* parent)
    : QWidget(parent),
      tasks_(new TaskTableModel(this)),
      dueOnly_(new QCheckBox(tr("Only those d&ue"), this)),
      table_(new QTableView(this)) {
  makeDue();
  makeTable();
  auto* top = new QHBoxLayout;
  top->addStretch();
  top->addWidget(dueOnly_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(table_);
  connect(tasks_, &TaskTableModel::failed, this, &TaskPage::failed, Qt::QueuedConnection);
  connect(tasks_, &TaskTableModel::read, this, &TaskPage::read);
}

void TaskPage::makeDue() {
  dueOnly_->setObjectName("dueOnly");
  dueOnly_->setToolTip(tr("Show only the tasks whose clients are to be notified today"));
  connect(dueOnly_, &QCheckBox::toggled, tasks_, &TaskTableModel::setDueOnly);
}

void TaskPage::makeTable() {
  table_->setObjectName("tasks");
  table_->setAccessibleName(tr("Open tasks"));
  setFocusProxy(table_);
  table_->setModel(tasks_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setAlternatingRowColors(true);
  table_->setShowGrid(false);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 8);
  QHeaderView& header = SortHeader::giveTo(*table_);
  header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header.setSortIndicator(TaskTableModel::dueDate, Qt::AscendingOrder);
  table_->setSortingEnabled(true);
  header.setMinimumSectionSize(leastCharacters * table_->fontMetrics().horizontalAdvance('0'));
  for (const int named : {TaskTableModel::client, TaskTableModel::task})
    header.setSectionResizeMode(named, QHeaderView::Stretch);
  for (const auto& [column, width] : columnWidths)
    table_->setColumnWidth(column, width * table_->fontMetrics().horizontalAdvance('0'));
  auto* nothing = new QLabel(tr("No open task fits."), table_->viewport());
  (new QVBoxLayout(table_->viewport()))->addWidget(nothing, 0, Qt::AlignCenter);
  connect(tasks_, &QAbstractItemModel::modelReset, this, [this, nothing] {
    nothing->setVisible(tasks_->rowCount() == 0);
    if (!table_->currentIndex().isValid()) table_->selectRow(0);
    emit changed();
  });
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &TaskPage::changed);
  connect(table_, &QTableView::activated, this, &TaskPage::activated);
}

void TaskPage::readFrom(host::Desk& desk) {
  const int row = table_->currentIndex().row();
  tasks_->setDesk(&desk);
  if (row >= 0 && row < tasks_->rowCount()) table_->selectRow(row);
}

void TaskPage::setFilter(const QString& text) {
  if (filter_ == text) return;
  filter_ = text;
  tasks_->setFilter(text);
}

void TaskPage::goToFirstRow() {
  if (!table_->currentIndex().isValid()) table_->selectRow(0);
  table_->setFocus(Qt::OtherFocusReason);
}

void TaskPage::addCommand(QAction* command, bool isBelowLine) {
  if (isBelowLine) {
    auto* line = new QAction(table_);
    line->setSeparator(true);
    table_->addAction(line);
  }
  table_->addAction(command);
}

const host::TaskLine* TaskPage::chosen() const {
  const QModelIndexList rows = table_->selectionModel()->selectedRows();
  return rows.isEmpty() ? nullptr : &tasks_->lineAt(rows.front());
}

bool TaskPage::hasTasks() const {
  // The filter stays in reach while it has text.
  return tasks_->rowCount() > 0 || !unreadable().empty() || !filter_.isEmpty() ||
         dueOnly_->isChecked();
}

}  // namespace autonotify::desktop
