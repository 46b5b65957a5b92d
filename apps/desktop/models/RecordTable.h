#pragma once

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <span>
#include <vector>

namespace autonotify::desktop {

/// A column of a table of records.
template <class Record>
struct RecordColumn {
  /// To be translated.
  const char* title;
  /// What is shown, and sorted by.
  QVariant (*value)(const Record& record);
};

/// Records as the rows of a table.
template <class Record>
class RecordTable : public QAbstractTableModel {
 public:
  using Columns = std::span<const RecordColumn<Record>>;

  /// The columns outlive the table.
  RecordTable(Columns columns, QObject* parent) : QAbstractTableModel(parent), columns_(columns) {}

  void show(std::vector<Record> records) {
    beginResetModel();
    records_ = std::move(records);
    endResetModel();
  }
  const std::vector<Record>& records() const { return records_; }
  const Record& at(int row) const { return records_.at(static_cast<std::size_t>(row)); }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(records_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    return columns_[static_cast<std::size_t>(index.column())].value(at(index.row()));
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return QCoreApplication::translate("QObject",
                                       columns_[static_cast<std::size_t>(section)].title);
  }

 private:
  Columns columns_;
  std::vector<Record> records_;
};

}  // namespace autonotify::desktop
