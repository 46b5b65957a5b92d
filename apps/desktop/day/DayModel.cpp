#include "day/DayModel.h"

#include <QLocale>
#include <QStringList>
#include <array>

#include "binding/DateBinding.h"
#include "day/day_formats.h"
#include "day/row_acts.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

/// In the order of DayModel::Column.
constexpr std::array<const char*, DayModel::columns> columnTitles{
    QT_TRANSLATE_NOOP("autonotify::desktop::DayModel", "Client"),
    QT_TRANSLATE_NOOP("autonotify::desktop::DayModel", "Task"),
    QT_TRANSLATE_NOOP("autonotify::desktop::DayModel", "Due"),
    QT_TRANSLATE_NOOP("autonotify::desktop::DayModel", "Notify on"),
    QT_TRANSLATE_NOOP("autonotify::desktop::DayModel", "Channel"),
    QT_TRANSLATE_NOOP("autonotify::desktop::DayModel", "State"),
    QT_TRANSLATE_NOOP("autonotify::desktop::DayModel", "Action"),
};

/// The id of an index of a group; those of its rows hold its number behind it.
constexpr quintptr groupId = 0;

QVariant sortValue(const host::DayLine& line, int column) {
  switch (column) {
    case DayModel::due:
      return line.due.days();
    case DayModel::notifyOn:
      return line.row.date.days();
    case DayModel::channel:
      return line.row.channel;
    case DayModel::state:
      return static_cast<int>(line.state);
    case DayModel::act:
      return textOf(actOf(line));
    default:
      return shown(column == DayModel::client ? line.client : line.item);
  }
}

}  // namespace

void DayModel::show(std::vector<DayGroupShown> groups, QDate today) {
  beginResetModel();
  groups_ = std::move(groups);
  today_ = today;
  endResetModel();
}

const DayGroupShown& DayModel::groupAt(const QModelIndex& index) const {
  const bool isGroup = index.internalId() == groupId;
  return groups_.at(isGroup ? static_cast<std::size_t>(index.row()) : index.internalId() - 1);
}

const host::DayLine* DayModel::lineAt(const QModelIndex& index) const {
  if (!index.isValid() || index.internalId() == groupId) return nullptr;
  return &groupAt(index).lines.at(static_cast<std::size_t>(index.row()));
}

QModelIndex DayModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column,
                     parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : groupId);
}

QModelIndex DayModel::parent(const QModelIndex& index) const {
  if (!index.isValid() || index.internalId() == groupId) return {};
  return createIndex(static_cast<int>(index.internalId()) - 1, 0, groupId);
}

int DayModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(groups_.size());
  const bool isGroup = parent.internalId() == groupId && parent.column() == 0;
  return isGroup ? static_cast<int>(groupAt(parent).lines.size()) : 0;
}

int DayModel::columnCount(const QModelIndex&) const {
  return Column::columns;
}

QVariant DayModel::data(const QModelIndex& index, int role) const {
  const DayGroupShown& group = groupAt(index);
  if (const host::DayLine* line = lineAt(index))
    return lineData(*line, group.tone, index.column(), role);
  if (index.column() != client) return {};
  if (role == Qt::AccessibleTextRole)
    return tr("%1, %L2", "a heading and how many").arg(group.name).arg(group.count);
  return role == Qt::DisplayRole ? QVariant(group.name) : QVariant();
}

QVariant DayModel::lineData(const host::DayLine& line, DayTone tone, int column, int role) const {
  if (role == sortRole) return sortValue(line, column);
  if (role == Qt::AccessibleTextRole && column == client) return accessibleText(line, tone);
  if (role == Qt::ToolTipRole && column == channel) return channelText(line.row.channel);
  if (role == Qt::ToolTipRole && (column == client || column == task))
    return shown(column == client ? line.client : line.item);
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
  switch (column) {
    case client:
      return shown(line.client);
    case task:
      return shown(line.item);
    case due:
      return dayText(line.due);
    case notifyOn:
      return dayText(line.row.date);
    case channel:
      return channelText(line.row.channel);
    case state:
      return stateText(line.state);
    default:
      return textOf(actOf(line));
  }
}

/// The year stands only where it is another one.
QString DayModel::dayText(DateTime day) const {
  if (day.isZero()) return {};
  const QDate date = qtDate(day);
  return date.year() == today_.year() ? shortDay(date) : shortDate(date);
}

QString DayModel::accessibleText(const host::DayLine& line, DayTone tone) const {
  const QString when = tone == DayTone::today ? tr("today") : dayText(line.row.date);
  QStringList words{shown(line.client), shown(line.item), channelText(line.row.channel).toLower(),
                    tone == DayTone::overdue ? tr("overdue since %1").arg(when) : when,
                    stateText(line.state).toLower()};
  words.removeAll(QString());
  return words.join(", ");
}

QVariant DayModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  // What these two hold tells itself.
  const bool isPlain = section == channel || section == act;
  if (role == Qt::AccessibleTextRole || (role == Qt::DisplayRole && !isPlain))
    return tr(columnTitles.at(static_cast<std::size_t>(section)));
  return {};
}

}  // namespace autonotify::desktop
