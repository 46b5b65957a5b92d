#include "host/exchange/HeldRows.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/clients/record_rows.h"
#include "host/database/schema/Schema.h"

namespace autonotify::host {

std::size_t HeldRows::Table::placeOf(std::string_view column) const {
  return static_cast<std::size_t>(std::ranges::find(columns, column) - columns.begin());
}

const Value* HeldRows::find(const std::string& name, Id key, std::string_view column) {
  if (key < 0) return nullptr;
  Table& table = tables_[name];
  const std::size_t place = table.placeOf(column);
  if (place == table.columns.size()) {
    table.columns.emplace_back(column);
    table.blocks.clear();
    table.rows.clear();
  }
  if (table.blocks.insert(key / blockSize).second) readBlock(name, table, key / blockSize);
  const auto row = table.rows.find(key);
  return row == table.rows.end() ? nullptr : &row->second[place];
}

void HeldRows::readBlock(const std::string& name, Table& table, Id block) {
  const std::string key = findTable(name)->key();
  const std::int64_t first = std::int64_t{block} * blockSize;
  const std::string sql =
      fmt::format("SELECT {0}, {1} FROM {2} WHERE {0}>={3} AND {0}<{4};", key,
                  fmt::join(table.columns, ", "), name, first, first + blockSize);
  forEachRow(database_, sql, [&](const Row& row) {
    std::vector<Value>& values = table.rows[row.id(key)];
    for (const std::string& column : table.columns) values.push_back(row.value(column));
  });
}

void HeldRows::release(const std::string& table, Id key) {
  tables_[table].rows.erase(key);
}

void HeldRows::changed(std::string_view name, Id key, std::span<const Field> fields) {
  const auto table = tables_.find(std::string(name));
  if (table == tables_.end()) return;
  const auto row = table->second.rows.find(key);
  if (row == table->second.rows.end()) return;
  for (const Field& field : fields) {
    const std::size_t place = table->second.placeOf(field.column);
    if (place < row->second.size()) row->second[place] = field.value;
  }
}

}  // namespace autonotify::host
