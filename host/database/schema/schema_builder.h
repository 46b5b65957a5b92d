#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/database/schema/Schema.h"

/// The vocabulary in which the tables are written: each function makes a group of columns.
namespace autonotify::host::schema {

using Columns = std::vector<ColumnDef>;
using Names = std::initializer_list<std::string_view>;

inline Columns columns(ColumnKind kind, Names names, std::string_view defaultValue = {}) {
  Columns result;
  for (std::string_view name : names)
    result.push_back({std::string(name), kind, std::string(defaultValue)});
  return result;
}

inline Columns key(std::string_view name) {
  return columns(ColumnKind::Key, {name});
}
/// Ids of other rows; -1 means none.
inline Columns links(Names names) {
  return columns(ColumnKind::Integer, names, "-1");
}
inline Columns integers(Names names, std::string_view value = {}) {
  return columns(ColumnKind::Integer, names, value);
}
inline Columns smalls(Names names, std::string_view value = {}) {
  return columns(ColumnKind::SmallInteger, names, value);
}
inline Columns flags(Names names, std::string_view value = "0") {
  return columns(ColumnKind::Flag, names, value);
}
inline Columns texts(Names names) {
  return columns(ColumnKind::Text, names);
}
inline Columns memos(Names names) {
  return columns(ColumnKind::Memo, names);
}
inline Columns dates(Names names) {
  return columns(ColumnKind::DateTime, names);
}
inline Columns doubles(Names names) {
  return columns(ColumnKind::Double, names);
}
inline Columns currencies(Names names) {
  return columns(ColumnKind::Currency, names);
}

/// Five text columns, as `Custom1` to `Custom5`.
inline Columns five(std::string_view stem) {
  Columns result;
  for (char number = '1'; number <= '5'; ++number)
    result.push_back({std::string(stem) + number, ColumnKind::Text, {}});
  return result;
}

/// The address as one text and as lines, and the rest of it, each name behind `prefix`.
inline Columns address(std::string_view prefix = {}) {
  Columns result = texts(
      {"Address", "Address1", "Address2", "Address3", "City", "Province", "PostalCode", "Country"});
  for (ColumnDef& column : result) column.name.insert(0, prefix);
  return result;
}

inline TableDef table(std::string_view name, std::initializer_list<Columns> groups,
                      std::initializer_list<Names> indexes = {}) {
  TableDef result{std::string(name), {}, {}};
  for (const Columns& group : groups)
    result.columns.insert(result.columns.end(), group.begin(), group.end());
  for (const Names& index : indexes) result.indexes.emplace_back(index.begin(), index.end());
  return result;
}

// One list of tables per concern.
std::vector<TableDef> notificationTables();
std::vector<TableDef> scheduleTables();
std::vector<TableDef> diaryTables();
std::vector<TableDef> addressBookTables();
std::vector<TableDef> accountingTables();
std::vector<TableDef> firmTables();
std::vector<TableDef> settingsTables();
std::vector<TableDef> practiceTables();

}  // namespace autonotify::host::schema
