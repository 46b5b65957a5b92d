#include "models/TaskTableModel.h"

#include <QColor>
#include <QFont>
#include <QLocale>
#include <algorithm>
#include <array>
#include <utility>

#include "day/row_acts.h"
#include "host/desk/day_text.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr std::size_t pageSize = 100;

struct ColumnLook {
  const char* title;
  host::TaskOrder order;
};
/// In the order of TaskTableModel::Column.
constexpr std::array<ColumnLook, TaskTableModel::columns> looks{{
    {QT_TRANSLATE_NOOP("autonotify::desktop::TaskTableModel", "Client"), host::TaskOrder::client},
    {QT_TRANSLATE_NOOP("autonotify::desktop::TaskTableModel", "Task"), host::TaskOrder::name},
    {QT_TRANSLATE_NOOP("autonotify::desktop::TaskTableModel", "Due"), host::TaskOrder::dueDate},
    {QT_TRANSLATE_NOOP("autonotify::desktop::TaskTableModel", "Notify on"),
     host::TaskOrder::notificationDate},
    {QT_TRANSLATE_NOOP("autonotify::desktop::TaskTableModel", "Channels"),
     host::TaskOrder::channels},
    {QT_TRANSLATE_NOOP("autonotify::desktop::TaskTableModel", "State"), host::TaskOrder::state},
}};

const ColumnLook& columnLook(int column) {
  return looks.at(static_cast<std::size_t>(column));
}

QString dayText(DateTime day) {
  return day.isZero() ? QString() : shown(host::dayText(day));
}

QString stateText(host::TaskState state) {
  switch (state) {
    case host::TaskState::waiting:
      return QObject::tr("scheduled");
    case host::TaskState::due:
      return QObject::tr("due");
    case host::TaskState::sent:
      return QObject::tr("sent");
    case host::TaskState::none:
      break;
  }
  return {};
}

QString channelsText(const host::TaskLine& line) {
  const int channels = line.pendingChannels | line.sentChannels;
  QStringList names;
  for (const notifyType channel : allNotifyTypes)
    if (channels & channel) names.append(channelText(channel).toLower());
  return names.join(", ");
}

QString textAt(const host::TaskLine& line, int column, DateTime today) {
  switch (column) {
    case TaskTableModel::client:
      return shown(line.client);
    case TaskTableModel::task:
      return shown(line.task.name);
    case TaskTableModel::dueDate:
      return dayText(line.task.dueDate);
    case TaskTableModel::notificationDate:
      return dayText(line.notificationDate);
    case TaskTableModel::channels:
      return channelsText(line);
    default:
      return stateText(stateOf(line, today));
  }
}

}  // namespace

void TaskTableModel::setDesk(host::Desk* desk) {
  desk_ = desk;
  reload();
}

void TaskTableModel::setFilter(const QString& text) {
  query_.filter = plain(text.trimmed());
  show(pageSize);
}

void TaskTableModel::setDueOnly(bool dueOnly) {
  query_.isToNotify = dueOnly;
  show(pageSize);
}

void TaskTableModel::reload() {
  show(std::max(passed_, pageSize));
}

void TaskTableModel::show(std::size_t most) {
  passed_ = 0;
  unreadable_ = {};
  std::vector<host::TaskLine> lines = readPage(most);
  beginResetModel();
  lines_ = std::move(lines);
  endResetModel();
  emit read();
}

const host::TaskLine& TaskTableModel::lineAt(const QModelIndex& index) const {
  return lines_.at(static_cast<std::size_t>(index.row()));
}

int TaskTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int TaskTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : Column::columns;
}

QVariant TaskTableModel::data(const QModelIndex& index, int role) const {
  const host::TaskLine& line = lineAt(index);
  if (role == Qt::DisplayRole) return textAt(line, index.column(), desk_->today());
  const bool isDue = stateOf(line, desk_->today()) == host::TaskState::due;
  if (role == Qt::FontRole && index.column() == state && isDue) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  return {};
}

QVariant TaskTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return tr(columnLook(section).title);
}

bool TaskTableModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && hasMore_;
}

void TaskTableModel::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  append(readPage(pageSize));
  emit read();
}

void TaskTableModel::append(std::vector<host::TaskLine> page) {
  if (page.empty()) return;
  // A listener may ask for more while the rows come in.
  const bool hasMore = std::exchange(hasMore_, false);
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(page.size()) - 1);
  std::ranges::move(page, std::back_inserter(lines_));
  hasMore_ = hasMore;
  endInsertRows();
}

void TaskTableModel::sort(int column, Qt::SortOrder order) {
  if (column < 0 || column >= Column::columns) return;
  query_.order = columnLook(column).order;
  query_.descending = order == Qt::DescendingOrder;
  show(pageSize);
}

std::vector<host::TaskLine> TaskTableModel::readPage(std::size_t most) {
  host::TaskLines page;
  try {
    do {
      if (desk_) page = host::readTaskLines(*desk_, query_, passed_, most);
      passed_ += page.passed;
      unreadable_.name(page.unreadable);
      hasMore_ = page.passed == most;
    } while (page.rows.empty() && hasMore_);
  } catch (const PlatformError& error) {
    hasMore_ = false;
    emit failed(faultOf(error.description()));
  }
  return std::move(page.rows);
}

}  // namespace autonotify::desktop
