#include "host/database/Plan.h"

#include <algorithm>

#include "host/database/dialect/DatabaseError.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

/// A row of fewer columns is read as fast as a part of it.
constexpr std::size_t wideRow = 8;
/// How many executions have to ask for nothing new.
constexpr int runsToSettle = 3;

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

/// The column of keys or integers, with its table's alias, whose given value is the only condition;
/// empty where the condition is another one.
std::string soughtColumn(const Translation& translation, const TableDef& table,
                         const std::string& alias, Engine engine) {
  const std::string condition = replaceAll(translation.sql.substr(translation.fromEnd), " ", "");
  const auto isSought = [&](const ColumnDef& column) {
    const std::string end = column.name + '=' + placeholder(engine, 1);
    return (column.kind == ColumnKind::Key || column.kind == ColumnKind::Integer) &&
           (equalIgnoreCase(condition, "WHERE" + alias + end) ||
            equalIgnoreCase(condition, "WHERE" + end));
  };
  const auto found = std::ranges::find_if(table.columns, isSought);
  return found == table.columns.end() ? std::string() : alias + found->name;
}

/// Whether nothing but names with their tables' says what the order is by. A plain name, or a
/// number, may mean a column by its place in the list.
bool isOrderedByTables(const Translation& translation) {
  if (!translation.isOrdered) return true;
  const std::string text =
      lowerCase(std::string_view(translation.sql).substr(0, translation.orderEnd));
  std::size_t at = text.rfind("order by ");
  if (at == std::string::npos) return false;
  while (at != std::string::npos) {
    const std::size_t end = text.find(',', at + 1);
    if (text.substr(at, end - at).find('.') == std::string::npos) return false;
    at = end;
  }
  return true;
}

}  // namespace

Plan::Plan(Driver& driver, const Translation& translation) : driver_(driver) {
  all_->statement = driver.prepare(rowsSql(translation));
}

std::string Plan::rowsSql(const Translation& translation) {
  const std::string& sql = translation.sql;
  std::vector<std::string>& keys = keys_;
  for (const TableReference& reference : tablesWithKeys(translation)) {
    const TableDef* table = findTable(reference.table);
    keys.push_back(reference.alias + '.' + table->key());
    if (translation.rowsAreTableRows) tables_.push_back(table);
    if (!translation.hasSubquery) tablesRead_.push_back(table);
  }
  if (keys.empty()) return sql;
  const bool isWhole = keys.size() == 1 && translation.fromEnd == sql.size();
  isWholeTable_ = isWhole && isKeyed();
  std::string rest = sql.substr(translation.from, translation.orderEnd - translation.from);
  const Engine engine = driver_.engine();
  if (tables_.size() == 1) {
    const std::string alias = keys.front().substr(0, keys.front().find('.') + 1);
    sought_ = soughtColumn(translation, *tables_.front(), alias, engine);
    isOneRow_ = sought_ == keys.front();
  }
  if (!isOneRow_)
    rest += (translation.isOrdered ? ", " : " ORDER BY ") + keyOrder(engine, keys, isWhole);
  rest += sql.substr(translation.orderEnd);
  if (isKeyed() && isOrderedByTables(translation)) behindColumns_ = rest;
  return (isKeyed() ? keyBy(translation, keys) : sql.substr(0, translation.from)) + rest;
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
  const std::string from =
      ' ' + translation.sql.substr(translation.from, translation.fromEnd - translation.from);
  rowByKeysSql_ = list + from + condition;
  blockByKeysSql_ = list + from + " WHERE " + keys.front() + " IN (";
  if (isLookUp())
    rowsAheadSql_ = list + ", " + sought_ + from + " WHERE " + sought_ + " BETWEEN " +
                    placeholder(driver_.engine(), 1) + " AND " + placeholder(driver_.engine(), 2) +
                    " LIMIT " + std::to_string(blockRows);
  return list + ' ';
}

void Plan::describe() {
  if (!columns_.empty()) return;
  const std::vector<ResultColumn>& results = all_->statement->columns();
  bool mayBeNarrow = !behindColumns_.empty() && results.size() >= wideRow;
  for (std::size_t i = 0; i < results.size() - tables_.size(); ++i) {
    const ResultColumn& result = results[i];
    PlanColumn column{result.name, findTable(result.table)};
    if (column.table) column.origin = findColumn(result.table, result.column);
    // A table that stands twice in the FROM clause leaves open which of its rows a column is of.
    if (std::count(tables_.begin(), tables_.end(), column.table) == 1) {
      const auto place = std::find(tables_.begin(), tables_.end(), column.table);
      column.tableIndex = static_cast<int>(place - tables_.begin());
    }
    mayBeNarrow = mayBeNarrow && column.tableIndex >= 0;
    columns_.push_back(std::move(column));
    if (!isKeyed()) keep(static_cast<int>(i));
  }
  mayBeNarrow_ = mayBeNarrow;
  for (RowStatement* each : {all_.get(), &rowByKeys_, &blockByKeys_, &rowsAhead_}) {
    each->keysFrom = static_cast<int>(columns_.size());
    for (int i = 0; i < each->keysFrom; ++i)
      each->sources.push_back({i, columns_[static_cast<std::size_t>(i)].origin});
  }
  if (isKeyed())
    for (RowStatement::Source& each : all_->sources) each.place = -1;
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

int Plan::findColumnIndex(std::string_view name) const {
  const auto found = byName_.find(name);
  if (found == byName_.end())
    throw DatabaseError(database_error::unknownColumn,
                        "The recordset has no column named " + std::string(name));
  askedNames_.remember(name, found->second);
  return found->second;
}

void Plan::askAnother(int column) {
  all_->sources[static_cast<std::size_t>(column)].place = column;
  settledRuns_ = 0;
  narrow_.reset();
}

const std::shared_ptr<RowStatement>& Plan::rows() {
  if (!mayBeNarrow_) return all_;
  if (settledRuns_ < runsToSettle) {
    ++settledRuns_;
    return all_;
  }
  return narrowRows();
}

const std::shared_ptr<RowStatement>& Plan::narrowRows() {
  if (mayBeNarrow_ && !narrow_) narrow_ = withAskedColumns();
  return narrow_;
}

std::shared_ptr<RowStatement> Plan::withAskedColumns() const {
  auto result = std::make_shared<RowStatement>();
  std::string sql = "SELECT ";
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const bool isAsked = all_->gives(static_cast<int>(i));
    result->sources.push_back({isAsked ? result->keysFrom++ : -1, columns_[i].origin});
    if (!isAsked) continue;
    const std::string& key = keys_[static_cast<std::size_t>(columns_[i].tableIndex)];
    sql += key.substr(0, key.find('.') + 1) + columns_[i].origin->name + ", ";
  }
  for (std::size_t i = 0; i < keys_.size(); ++i) sql += (i > 0 ? ", " : "") + keys_[i];
  result->statement = driver_.prepare(sql + ' ' + behindColumns_);
  return result;
}

const RowStatement& Plan::rowByKeys() {
  if (!rowByKeys_.statement) rowByKeys_.statement = driver_.prepare(rowByKeysSql_);
  return rowByKeys_;
}

const RowStatement& Plan::blockByKeys() {
  if (blockByKeys_.statement) return blockByKeys_;
  std::string sql = blockByKeysSql_;
  for (std::size_t i = 1; i <= blockRows; ++i)
    sql += placeholder(driver_.engine(), i) + (i < blockRows ? ',' : ')');
  blockByKeys_.statement = driver_.prepare(sql);
  return blockByKeys_;
}

const RowStatement& Plan::rowsAhead() {
  if (!rowsAhead_.statement) rowsAhead_.statement = driver_.prepare(rowsAheadSql_);
  return rowsAhead_;
}

}  // namespace autonotify::host
