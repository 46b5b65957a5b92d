#include "host/copy/DatabaseCopy.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "host/clients/record_rows.h"
#include "host/copy/accepted_values.h"
#include "host/database/dialect/DatabaseError.h"

namespace autonotify::host {
namespace {

constexpr int portion = 1000;

std::string rowsOf(const TableDef& table, const std::string& condition = {}) {
  return "SELECT " + table.name + ".* FROM " + table.name + condition + " ORDER BY " + table.key() +
         ";";
}

std::optional<std::int64_t> greatestKey(CopyPlace& place, const TableDef& table) {
  std::optional<std::int64_t> key;
  firstRow(place.database(), "SELECT MAX(" + table.key() + ") AS Greatest FROM " + table.name + ";",
           [&](const Row& row) {
             const Value greatest = row.value("Greatest");
             if (const auto* number = greatest.getIf<std::int64_t>()) key = *number;
           });
  return key;
}

/// The greatest key that the table ever gave, 0 for none: it may be that of a deleted row.
std::int64_t lastKey(CopyPlace& place, const TableDef& table) {
  return std::max(place.counter(table), greatestKey(place, table).value_or(0));
}

std::vector<Value> valuesOf(const TableDef& table, const Row& row) {
  std::vector<Value> values;
  values.reserve(table.columns.size());
  for (const ColumnDef& column : table.columns) values.push_back(row.value(column.name));
  return values;
}

/// All rows of a table, one after the other.
class Walk {
 public:
  Walk(DatabaseReference& database, const TableDef& table)
      : table_(table), rows_(database, rowsOf(table)) {}

  std::optional<std::vector<Value>> next() {
    if (rows_.isAtEnd()) return std::nullopt;
    std::vector<Value> values = valuesOf(table_, rows_.row());
    rows_.moveNext();
    return values;
  }

 private:
  const TableDef& table_;
  OpenRows rows_;
};

/// One table on its way.
class TableCopy {
 public:
  TableCopy(CopyPlace& from, CopyPlace& to, const TableDef& table, const CopyProgress& progress)
      : from_(from), to_(to), table_(table), progress_(progress) {}

  void copy(RowSink& sink) {
    std::int64_t rows = 0;
    forEachRow(from_.database(), rowsToCome(), [&](const Row& row) {
      if (rows++ % portion == 0) sink.begin();
      insert(sink, row);
      if (rows % portion == 0) endPortion(sink, rows);
    });
    if (rows % portion != 0) endPortion(sink, rows);
    if (const std::int64_t last = lastKey(from_, table_); last > 0) to_.setCounter(table_, last);
  }

  std::int64_t compare() {
    Walk here(from_.database(), table_);
    Walk there(to_.database(), table_);
    std::int64_t rows = 0;
    for (auto row = here.next(); row; row = here.next(), ++rows) {
      requireEqual(*row, there.next());
      if (rows % portion == 0) progress_("comparing", table_.name, rows);
    }
    if (const auto surplus = there.next()) differ(where(surplus->front()));
    if (lastKey(from_, table_) != lastKey(to_, table_)) differ("the next key of " + table_.name);
    return rows;
  }

 private:
  std::string rowsToCome() {
    const auto greatest = greatestKey(to_, table_);
    if (!greatest) return rowsOf(table_);
    return rowsOf(table_, " WHERE " + table_.key() + ">" + std::to_string(*greatest));
  }

  void insert(RowSink& sink, const Row& row) {
    fields_.clear();
    for (const ColumnDef& column : table_.columns) {
      fields_.push_back({column.name, row.value(column.name)});
      requireAccepted(column, fields_.back().value);
    }
    sink.insertRow(table_.name, fields_);
  }

  void requireAccepted(const ColumnDef& column, const Value& value) const {
    const char* refusal = value.isNull() ? nullptr : refusalOf(to_.engine(), column.kind, value);
    if (refusal)
      throw DatabaseError(database_error::constraint,
                          "The original cannot be stored there in " +
                              where(fields_.front().value, column.name) + ", which takes " +
                              refusal + "; correct it in the original and run the copy again");
  }

  void endPortion(RowSink& sink, std::int64_t rows) {
    sink.commit();
    progress_("copying", table_.name, rows);
  }

  bool isEqual(std::size_t column, const Value& here, const Value& there) const {
    if (here == there) return true;
    if (table_.columns[column].kind != ColumnKind::Currency || here.isNull() || there.isNull())
      return false;
    constexpr double halfOfLastDigit = 0.00005;
    return std::abs(toDouble(here) - toDouble(there)) <= halfOfLastDigit;
  }

  void requireEqual(const std::vector<Value>& here,
                    const std::optional<std::vector<Value>>& there) const {
    if (!there || here.front() != there->front()) differ(where(here.front()));
    for (std::size_t i = 0; i < here.size(); ++i)
      if (!isEqual(i, here[i], (*there)[i])) differ(where(here.front(), table_.columns[i].name));
  }

  std::string where(const Value& key, const std::string& column = {}) const {
    return "table " + table_.name + ", key " + toText(key) +
           (column.empty() ? "" : ", column " + column);
  }

  [[noreturn]] void differ(const std::string& place) const {
    if (to_.isFinished())
      throw DatabaseError(database_error::alreadyExists,
                          "The finished copy there differs from the original in " + place);
    throw SpoiltCopy(
        database_error::constraint,
        "The databases differ in " + place + ": someone has written to one of them; copy it anew");
  }

  CopyPlace& from_;
  CopyPlace& to_;
  const TableDef& table_;
  const CopyProgress& progress_;
  std::vector<Field> fields_;
};

std::string identityOf(RecordsetDatabase& database) {
  std::string identity;
  firstRow(database, "SELECT DatabaseIdentity.UniqueText FROM DatabaseIdentity;",
           [&](const Row& row) { identity = row.text("UniqueText"); });
  return identity;
}

const TableDef& identityTable() {
  return *findTable("DatabaseIdentity");
}

void requireSameDatabase(CopyPlace& from, CopyPlace& to) {
  const std::string there = identityOf(to.database());
  if (there == identityOf(from.database())) return;
  if (to.isFinished())
    throw DatabaseError(database_error::alreadyExists, "Another database is there");
  if (!there.empty())
    throw SpoiltCopy(database_error::foreign,
                     "The target is the unfinished copy of another database; begin anew");
}

/// The table that tells whose copy it is goes first.
void copyRows(CopyPlace& from, CopyPlace& to, const CopyProgress& progress) {
  const std::unique_ptr<RowSink> sink = to.newSink();
  TableCopy(from, to, identityTable(), progress).copy(*sink);
  for (const TableDef& table : schemaTables())
    if (&table != &identityTable()) TableCopy(from, to, table, progress).copy(*sink);
}

std::int64_t rowsIn(RecordsetDatabase& database) {
  std::int64_t rows = 0;
  for (const TableDef& table : schemaTables())
    firstRow(database, "SELECT COUNT(" + table.key() + ") AS Total FROM " + table.name + ";",
             [&](const Row& row) { rows += row.id("Total", 0); });
  return rows;
}

}  // namespace

CopyResult copyDatabase(CopyPlace& from, CopyPlace& to, const CopyProgress& progress) {
  CopyResult result;
  result.foundThere = rowsIn(to.database());
  requireSameDatabase(from, to);
  if (!to.isFinished()) copyRows(from, to, progress);
  for (const TableDef& table : schemaTables()) {
    const std::int64_t rows = TableCopy(from, to, table, progress).compare();
    result.rows += rows;
    result.tables += rows > 0;
  }
  if (!to.isFinished()) to.finish();
  return result;
}

}  // namespace autonotify::host
