#pragma once

#include <string>
#include <utility>
#include <vector>

#include "control/contract/DatabaseReference.h"
#include "platform/Value.h"

namespace autonotify::test {

/// Columns and their texts; a column left out takes its default.
using RowFields = std::vector<std::pair<const char*, std::string>>;

/// Adds a row past all procedures and gives its key.
inline Id addRowTo(DatabaseReference& database, const char* table, const char* keyColumn,
                   const RowFields& fields) {
  const std::string all = std::string("SELECT ") + table + ".* FROM " + table + ";";
  const RecordsetHandle handle =
      database.openRecordset(all, CursorMode::keyset, LockMode::updatable, -1, {}, -1, false);
  database.addNewRecord(handle);
  for (const auto& [column, text] : fields) database.setFieldValue(handle, column, text);
  const Id key = toInteger(database.getFieldValue(handle, keyColumn));
  database.saveNewRecord(handle);
  database.closeRecordset(handle);
  return key;
}

/// The column of the first row where `where` holds; null without a row.
inline Value readRowOf(DatabaseReference& database, const std::string& table,
                       const std::string& column, const std::string& where) {
  const std::string sql = "SELECT " + table + ".* FROM " + table + " WHERE " + where + ";";
  const RecordsetHandle handle =
      database.openRecordset(sql, CursorMode::keyset, LockMode::readOnly, -1, {}, -1, false);
  const Value value =
      database.hasRecords(handle) ? database.getFieldValue(handle, column) : Value{};
  database.closeRecordset(handle);
  return value;
}

}  // namespace autonotify::test
