#include "TaskPage.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace autonotify::desktop {
namespace {

constexpr int filterPauseMs = 200;
constexpr int columnWidths[] = {260, 260, 100, 100, 130};

}  // namespace

TaskPage::TaskPage(QWidget* parent)
    : QWidget(parent),
      tasks_(new TaskTableModel(this)),
      filter_(new QLineEdit(this)),
      dueBadge_(new QPushButton(tr("Due today"), this)),
      table_(new QTableView(this)) {
  makeFilter();
  makeBadge();
  makeTable();
  auto* top = new QHBoxLayout;
  top->addWidget(filter_, 1);
  top->addWidget(dueBadge_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(table_);
  connect(tasks_, &TaskTableModel::failed, this, &TaskPage::failed, Qt::QueuedConnection);
  connect(tasks_, &TaskTableModel::read, this, &TaskPage::read);
}

void TaskPage::makeFilter() {
  filter_->setObjectName("filter");
  filter_->setPlaceholderText(tr("Find a client or task"));
  filter_->setClearButtonEnabled(true);
  auto* pause = new QTimer(this);
  pause->setSingleShot(true);
  pause->setInterval(filterPauseMs);
  connect(filter_, &QLineEdit::textChanged, pause, qOverload<>(&QTimer::start));
  connect(pause, &QTimer::timeout, this, [this] { tasks_->setFilter(filter_->text()); });
}

void TaskPage::makeBadge() {
  dueBadge_->setObjectName("dueBadge");
  dueBadge_->setCheckable(true);
  dueBadge_->setToolTip(tr("Show only the tasks whose clients are to be notified today"));
  connect(dueBadge_, &QPushButton::toggled, tasks_, &TaskTableModel::setDueOnly);
}

void TaskPage::makeTable() {
  table_->setObjectName("tasks");
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
  QHeaderView& header = *table_->horizontalHeader();
  header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header.setHighlightSections(false);
  header.setSortIndicator(TaskTableModel::dueDate, Qt::AscendingOrder);
  table_->setSortingEnabled(true);
  for (int column = 0; column < static_cast<int>(std::size(columnWidths)); ++column)
    table_->setColumnWidth(column, columnWidths[column]);
  header.setStretchLastSection(true);
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

void TaskPage::reload() {
  const int row = table_->currentIndex().row();
  tasks_->reload();
  if (row >= 0 && row < tasks_->rowCount()) table_->selectRow(row);
}

void TaskPage::showDue(std::size_t notifications) {
  dueBadge_->setText(notifications ? tr("%L1 due today").arg(notifications)
                                   : tr("Nothing is due today"));
  QFont font = this->font();
  font.setBold(notifications > 0);
  dueBadge_->setFont(font);
}

void TaskPage::focusFilter() {
  filter_->setFocus(Qt::ShortcutFocusReason);
  filter_->selectAll();
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
  return tasks_->rowCount() > 0 || !unreadable().empty() || !filter_->text().isEmpty() ||
         dueBadge_->isChecked();
}

}  // namespace autonotify::desktop
