#include "host/clients/lookup_table.h"

#include <string_view>
#include <utility>

#include "host/clients/record_rows.h"
#include "host/clients/unreadable_rows.h"

namespace autonotify::host {
namespace {

std::optional<Id> keyOf(const std::string& column, const Value& held) {
  try {
    return held.isNull() ? std::nullopt : std::optional(idOf(column, held));
  } catch (const UnreadableValue&) {
    return std::nullopt;
  }
}

}  // namespace

LookupTable::LookupTable(DatabaseReference& database, LookupSource source)
    : database_(database), source_(std::move(source)) {
  const std::string condition = std::string(source_.table) + '.' + source_.key + '=';
  rowByKey_ = selectWhere(condition);
  keyAt_ = rowByKey_.find(condition) + condition.size();
}

const LookupRow* LookupTable::find(Id key, bool wholeTable) {
  if (key < 0) return nullptr;
  if (!wholeTable) return readSingle(key);
  if (key == lastKey_) return last_;
  last_ = findHeld(key);
  lastKey_ = key;
  return last_;
}

const LookupRow* LookupTable::readSingle(Id key) {
  auto rows = read(std::string(rowByKey_).insert(keyAt_, std::to_string(key)), true);
  if (rows.empty()) return nullptr;
  single_ = std::move(rows.front().second);
  return &single_;
}

const LookupRow* LookupTable::findHeld(Id key) {
  if (!held_) {
    std::unordered_map<Id, LookupRow> rows;
    for (auto& [id, row] : readAll()) rows.try_emplace(id, std::move(row));
    held_ = std::move(rows);
  }
  const auto found = held_->find(key);
  return found == held_->end() ? nullptr : &found->second;
}

void LookupTable::forget() {
  held_.reset();
  lastKey_ = noId;
}

Id LookupTable::linkOf(Id key, bool wholeTable) {
  const LookupRow* row = find(key, wholeTable);
  try {
    return row ? idOf(source_.columns.front(), row->front()) : noId;
  } catch (const UnreadableValue& value) {
    std::string what = source_.table;
    // A key that is not the table's own is named too.
    if (std::string_view(source_.key) != source_.order) what.append(" ").append(source_.key);
    throw UnreadableRow(what + ' ' + std::to_string(key), value);
  }
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
    const std::optional<Id> key = keyOf(source_.key, current.value(source_.key));
    if (!key) continue;
    LookupRow row;
    row.reserve(source_.columns.size());
    for (const char* column : source_.columns) row.push_back(current.value(column));
    rows.emplace_back(*key, std::move(row));
    if (firstOnly) break;
  }
  return rows;
}

}  // namespace autonotify::host
