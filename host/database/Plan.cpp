#include "host/database/Plan.h"

#include <algorithm>

#include "host/database/dialect/DatabaseError.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

/// The tables whose keys the rows have; empty when they have none, or not all are of the schema.
std::vector<TableReference> tablesWithKeys(const Translation& translation) {
  if (!translation.rowsHaveKeys || translation.from == std::string::npos) return {};
  const std::string_view clause =
      std::string_view(translation.sql)
          .substr(translation.from, translation.fromEnd - translation.from);
  std::vector<TableReference> tables = tablesOf(clause);
  const bool known = std::all_of(tables.begin(), tables.end(), [](const TableReference& reference) {
    return findTable(reference.table) != nullptr;
  });
  return known ? tables : std::vector<TableReference>{};
}

/// Whether the only condition on the only table is that its key is a given one.
bool asksForOneRow(const Translation& translation, const std::string& key, Engine engine) {
  const std::string condition = replaceAll(translation.sql.substr(translation.fromEnd), " ", "");
  const std::string_view column = std::string_view(key).substr(key.find('.') + 1);
  const std::string given = '=' + placeholder(engine, 1);
  return equalIgnoreCase(condition, "WHERE" + key + given) ||
         equalIgnoreCase(condition, "WHERE" + std::string(column) + given);
}

}  // namespace

Plan::Plan(Driver& driver, const Translation& translation) : driver_(driver) {
  rows_ = driver.prepare(rowsSql(translation));
}

std::string Plan::rowsSql(const Translation& translation) {
  const std::string& sql = translation.sql;
  std::vector<std::string> keys;
  for (const TableReference& reference : tablesWithKeys(translation)) {
    const TableDef* table = findTable(reference.table);
    keys.push_back(reference.alias + '.' + table->key());
    if (translation.rowsAreTableRows) tables_.push_back(table);
  }
  if (keys.empty()) return sql;
  const bool isWhole = keys.size() == 1 && translation.fromEnd == sql.size();
  isWholeTable_ = isWhole && isKeyed();
  std::string result = isKeyed() ? keyBy(translation, keys) : sql.substr(0, translation.from);
  result += sql.substr(translation.from, translation.orderEnd - translation.from);
  const Engine engine = driver_.engine();
  if (keys.size() > 1 || !asksForOneRow(translation, keys.front(), engine))
    result += (translation.isOrdered ? ", " : " ORDER BY ") + keyOrder(engine, keys, isWhole);
  return result + sql.substr(translation.orderEnd);
}

/// Gives what is selected, with the keys behind it.
std::string Plan::keyBy(const Translation& translation, const std::vector<std::string>& keys) {
  std::string list = translation.sql.substr(0, translation.from);
  std::string condition;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    list += ", " + keys[i];
    condition +=
        (i == 0 ? " WHERE " : " AND ") + keys[i] + '=' + placeholder(driver_.engine(), i + 1);
  }
  list += ' ';
  rowByKeysSql_ = list +
                  translation.sql.substr(translation.from, translation.fromEnd - translation.from) +
                  condition;
  return list;
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
