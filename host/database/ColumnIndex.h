#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/database/RowList.h"

namespace autonotify::host {

/// The rows of a list by the values of one column, so that a search in a loop reads no row twice.
class ColumnIndex {
 public:
  /// Goes through all rows once.
  ColumnIndex(Session& session, RowList& rows, int column);

  int column() const { return column_; }
  /// False when the column or the list may have changed since.
  bool isCurrent(const Session& session, RowList& rows) const;

  /// The first row at or after `from` whose column has this text (see comparisonText).
  std::optional<std::size_t> find(RowList& rows, const std::string& text, std::size_t from) const;

 private:
  using Entry = std::pair<std::size_t, std::size_t>;  // hash of the text, row

  /// Nothing when the row has been deleted.
  std::optional<std::string> textOf(RowList& rows, std::size_t row) const;

  int column_;
  int keyOfTable_ = -1;  // the table whose key the column is, or -1
  const TableDef* table_;
  std::uint64_t version_;
  std::size_t count_ = 0;
  std::vector<Entry> entries_;  // sorted
};

}  // namespace autonotify::host
