#include "host/clients/lookup_table.h"

#include <utility>

#include "host/clients/record_rows.h"

namespace autonotify::host {
LookupTable::LookupTable(DatabaseReference& database, LookupSource source)
    : database_(database), source_(std::move(source)) {}

std::optional<LookupRow> LookupTable::find(Id key, bool wholeTable) {
  if (key < 0) return std::nullopt;
  if (!wholeTable) {
    const std::string condition =
        std::string(source_.table) + '.' + source_.key + '=' + std::to_string(key);
    auto rows = read(selectWhere(condition), true);
    return rows.empty() ? std::nullopt : std::optional(std::move(rows.front().second));
  }
  if (!held_) {
    std::unordered_map<Id, LookupRow> rows;
    for (auto& [id, row] : readAll()) rows.try_emplace(id, std::move(row));
    held_ = std::move(rows);
  }
  const auto found = held_->find(key);
  return found == held_->end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::pair<Id, LookupRow>> LookupTable::readAll() {
  return read(selectWhere(""), false);
}

std::string LookupTable::selectWhere(const std::string& condition) const {
  const std::string table = source_.table;
  std::string sql = "SELECT " + table + '.' + source_.key;
  for (const char* column : source_.columns) sql += ", " + table + '.' + column;
  sql += " FROM " + table;
  const std::string filter = source_.filter;
  const std::string both = !condition.empty() && !filter.empty() ? " AND " : "";
  if (!condition.empty() || !filter.empty()) sql += " WHERE " + condition + both + filter;
  return sql + " ORDER BY " + table + '.' + source_.order + ';';
}

std::vector<std::pair<Id, LookupRow>> LookupTable::read(const std::string& sql, bool firstOnly) {
  std::vector<std::pair<Id, LookupRow>> rows;
  if (!database_.isDatabaseOpen()) return rows;
  for (OpenRows open(database_, sql); !open.isAtEnd(); open.moveNext()) {
    const Row current = open.row();
    const Value key = current.value(source_.key);
    if (key.isNull()) continue;
    LookupRow row;
    row.reserve(source_.columns.size());
    for (const char* column : source_.columns) row.push_back(current.value(column));
    rows.emplace_back(toInteger(key), std::move(row));
    if (firstOnly) break;
  }
  return rows;
}

}  // namespace autonotify::host
