#include "day/DayFilter.h"

#include "day/DayModel.h"
#include "qt_text.h"

namespace autonotify::desktop {

DayFilter::DayFilter(QObject* parent) : QSortFilterProxyModel(parent) {
  setSortRole(DayModel::sortRole);
  setSortLocaleAware(true);
  setSortCaseSensitivity(Qt::CaseInsensitive);
}

void DayFilter::setText(const QString& text) {
  text_ = text.trimmed();
  invalidateFilter();
}

QVariant DayFilter::data(const QModelIndex& index, int role) const {
  const bool isGroup = !index.parent().isValid();
  if (role != Qt::AccessibleTextRole || !isGroup || !leavesOut() || index.column() != 0)
    return QSortFilterProxyModel::data(index, role);
  return tr("%1, %L2 found", "a heading and how many")
      .arg(index.data().toString())
      .arg(rowCount(index));
}

bool DayFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  const auto& day = static_cast<const DayModel&>(*sourceModel());
  const host::DayLine* line = day.lineAt(day.index(row, 0, parent));
  if (!line) return true;
  const auto holds = [&](const std::string& name) {
    return shown(name).contains(text_, Qt::CaseInsensitive);
  };
  return holds(line->client) || holds(line->item);
}

bool DayFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  if (left.parent().isValid()) return QSortFilterProxyModel::lessThan(left, right);
  return (left.row() < right.row()) == (sortOrder() == Qt::AscendingOrder);
}

}  // namespace autonotify::desktop
