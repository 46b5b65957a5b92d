#include "host/database/ColumnIndex.h"

#include <algorithm>
#include <functional>

#include "host/database/column_values.h"

namespace autonotify::host {

ColumnIndex::ColumnIndex(Session& session, RowList& rows, int column)
    : column_(column), version_(session.version()) {
  const PlanColumn& described = rows.plan().columns()[static_cast<std::size_t>(column)];
  table_ = described.table;
  const bool isKey = described.origin && described.origin->kind == ColumnKind::Key;
  if (isKey) keyOfTable_ = described.tableIndex;
  for (std::size_t row = rows.first(); rows.has(row); row = rows.next(row)) {
    ++count_;
    if (const std::optional<std::string> text = textOf(rows, row))
      entries_.emplace_back(std::hash<std::string>{}(*text), row);
  }
  std::sort(entries_.begin(), entries_.end());
}

std::optional<std::string> ColumnIndex::textOf(RowList& rows, std::size_t row) const {
  if (keyOfTable_ >= 0) return std::to_string(rows.key(row, keyOfTable_));
  const std::optional<Value> value = rows.value(row, column_);
  return value ? std::optional(comparisonText(*value)) : std::nullopt;
}

bool ColumnIndex::isCurrent(const Session& session, RowList& rows) const {
  return count_ == rows.count() && (keyOfTable_ >= 0 || session.versionOf(table_) <= version_);
}

std::optional<std::size_t> ColumnIndex::find(RowList& rows, const std::string& text,
                                             std::size_t from) const {
  const std::size_t hash = std::hash<std::string>{}(text);
  auto entry = std::lower_bound(entries_.begin(), entries_.end(), Entry{hash, from});
  for (; entry != entries_.end() && entry->first == hash; ++entry)
    if (rows.exists(entry->second) && textOf(rows, entry->second) == text) return entry->second;
  return std::nullopt;
}

}  // namespace autonotify::host
