#include "host/database/Plan.h"

#include <algorithm>

#include "host/database/dialect/DatabaseError.h"

namespace autonotify::host {
namespace {

std::vector<TableReference> keyedTables(const Translation& translation) {
  if (!translation.rowsAreTableRows || translation.from == std::string::npos) return {};
  const std::string_view clause =
      std::string_view(translation.sql)
          .substr(translation.from, translation.fromEnd - translation.from);
  std::vector<TableReference> tables = tablesOf(clause);
  const bool known = std::all_of(tables.begin(), tables.end(), [](const TableReference& reference) {
    return findTable(reference.table) != nullptr;
  });
  return known ? tables : std::vector<TableReference>{};
}

}  // namespace

Plan::Plan(Driver& driver, const Translation& translation) : driver_(driver) {
  rows_ = driver.prepare(keyedSql(driver, translation));
  isWholeTable_ = tables_.size() == 1 && translation.fromEnd == translation.sql.size();
}

std::string Plan::keyedSql(Driver& driver, const Translation& translation) {
  const std::string& sql = translation.sql;
  std::string keys;
  std::string condition;
  for (const TableReference& reference : keyedTables(translation)) {
    const TableDef* table = findTable(reference.table);
    tables_.push_back(table);
    const std::string key = reference.alias + '.' + table->key();
    keys += ", " + key;
    condition += condition.empty() ? " WHERE " : " AND ";
    condition += key + '=' + placeholder(driver.engine(), tables_.size());
  }
  if (tables_.empty()) return sql;
  const std::string list = sql.substr(0, translation.from) + keys + ' ';
  rowByKeysSql_ =
      list + sql.substr(translation.from, translation.fromEnd - translation.from) + condition;
  return list + sql.substr(translation.from);
}

void Plan::describe() {
  if (!columns_.empty()) return;
  const std::vector<ResultColumn>& results = rows_->columns();
  for (std::size_t i = 0; i < results.size() - tables_.size(); ++i) {
    const ResultColumn& result = results[i];
    PlanColumn column{result.name, findTable(result.table)};
    if (column.table) column.origin = findColumn(result.table, result.column);
    // A table that stands twice in the FROM clause leaves open which of its rows a column is of.
    if (std::count(tables_.begin(), tables_.end(), column.table) == 1) {
      const auto place = std::find(tables_.begin(), tables_.end(), column.table);
      column.tableIndex = static_cast<int>(place - tables_.begin());
    }
    columns_.push_back(std::move(column));
    if (!isKeyed()) keep(static_cast<int>(i));
  }
  nameColumns();
}

void Plan::keep(int column) {
  PlanColumn& wanted = columns_[static_cast<std::size_t>(column)];
  if (wanted.keptAt >= 0) return;
  kept_.push_back(column);
  wanted.keptAt = static_cast<int>(kept_.size()) - 1;
}

void Plan::nameColumns() {
  for (std::size_t i = 0; i < columns_.size(); ++i)
    byName_.try_emplace(columns_[i].name, static_cast<int>(i));
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (columns_[i].origin)
      byName_.try_emplace(columns_[i].table->name + '.' + columns_[i].origin->name,
                          static_cast<int>(i));
}

int Plan::columnIndex(std::string_view name) const {
  const auto found = byName_.find(name);
  if (found == byName_.end())
    throw DatabaseError(database_error::unknownColumn,
                        "The recordset has no column named " + std::string(name));
  return found->second;
}

DriverStatement& Plan::rowByKeys() {
  if (!rowByKeys_) rowByKeys_ = driver_.prepare(rowByKeysSql_);
  return *rowByKeys_;
}

}  // namespace autonotify::host
