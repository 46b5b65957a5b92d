#include "binding/GridTableModel.h"

#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr std::int16_t centred = 5;

int alignmentOf(const GridColumn& column) {
  const bool isCentred = column.align == centred || column.type == grid_column::tick;
  return Qt::AlignVCenter | (isCentred ? Qt::AlignHCenter : Qt::AlignLeft);
}

}  // namespace

void GridTableModel::reload() {
  beginResetModel();
  rows_ = grid_.get_Rows();
  columns_ = grid_.get_Cols();
  endResetModel();
}

void GridTableModel::clear() {
  beginResetModel();
  rows_ = 0;
  endResetModel();
}

void GridTableModel::showChange(const RowChange& change) {
  const int last = change.row + change.count - 1;
  if (change.kind == RowChange::Kind::added) {
    beginInsertRows({}, change.row, last);
    rows_ += change.count;
    endInsertRows();
  } else if (change.kind == RowChange::Kind::removed) {
    beginRemoveRows({}, change.row, last);
    rows_ -= change.count;
    endRemoveRows();
  } else if (columns_ > 0) {
    emit dataChanged(index(change.row, 0), index(last, columns_ - 1));
  }
}

void GridTableModel::showHeadings() {
  if (columns_ > 0) emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
}

int GridTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant GridTableModel::data(const QModelIndex& index, int role) const {
  const int row = index.row();
  const int column = index.column();
  if (!index.isValid() || !isThere(row, column)) return {};
  const bool isTick = grid_.get_colType(column) == grid_column::tick;
  if (role == Qt::DisplayRole && !isTick) return shown(grid_.get_CellText(row, column));
  if (role == Qt::CheckStateRole && isTick)
    return grid_.get_cellChecked(row, column) ? Qt::Checked : Qt::Unchecked;
  if (role == Qt::TextAlignmentRole) return alignmentOf(grid_.column(column));
  if (role == Qt::AccessibleTextRole) return spokenText(row, column);
  // A word that is cut off is read where the pointer rests.
  if (role == Qt::ToolTipRole && grid_.get_colType(column) == grid_column::text)
    return shown(grid_.get_CellText(row, column)).toHtmlEscaped();
  return {};
}

QString GridTableModel::spokenText(int row, int column) const {
  const std::int16_t type = grid_.get_colType(column);
  if (type == grid_column::tick)
    return (grid_.get_cellChecked(row, column) ? QObject::tr("%1, ticked")
                                               : QObject::tr("%1, not ticked"))
        .arg(shown(grid_.get_ColHeading(column)));
  QStringList words{shown(grid_.get_CellText(row, column))};
  if (type != grid_column::button) return words.front();
  for (const int name : look_.nameColumns)
    if (name < grid_.get_Cols()) words << shown(grid_.get_CellText(row, name));
  words.removeAll(QString());
  return words.join(", ");
}

QVariant GridTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= grid_.get_Cols()) return {};
  if (role == Qt::DisplayRole) return shown(grid_.get_ColHeading(section));
  if (role == Qt::ToolTipRole) return shown(grid_.get_ColHeading(section));
  if (role == Qt::TextAlignmentRole) return alignmentOf(grid_.column(section)) | Qt::TextWordWrap;
  return {};
}

}  // namespace autonotify::desktop
