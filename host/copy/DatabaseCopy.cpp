#include "host/copy/DatabaseCopy.h"

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "host/clients/record_rows.h"
#include "host/database/dialect/DatabaseError.h"

namespace autonotify::host {
namespace {

constexpr int portion = 1000;
constexpr Id beforeAll = -std::numeric_limits<Id>::max();

std::string rowsBehind(const TableDef& table, Id key) {
  return "SELECT " + table.name + ".* FROM " + table.name + " WHERE " + table.key() + ">" +
         std::to_string(key) + " ORDER BY " + table.key() + ";";
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
      : table_(table), rows_(database, rowsBehind(table, beforeAll)) {}

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
    forEachRow(from_.database(), rowsBehind(table_, greatestKeyThere()), [&](const Row& row) {
      if (rows++ % portion == 0) sink.begin();
      insert(sink, row);
      if (rows % portion == 0) endPortion(sink, rows);
    });
    if (rows % portion != 0) endPortion(sink, rows);
    if (const Id last = from_.lastKey(table_); last > 0) to_.setLastKey(table_, last);
  }

  std::int64_t compare() {
    Walk here(from_.database(), table_);
    Walk there(to_.database(), table_);
    std::int64_t rows = 0;
    for (auto row = here.next(); row; row = here.next(), ++rows) {
      requireEqual(*row, there.next());
      if (rows % portion == 0) progress_("comparing", table_.name, rows);
    }
    if (const auto surplus = there.next()) differ(surplus->front());
    if (from_.lastKey(table_) != to_.lastKey(table_)) differ("the next");
    return rows;
  }

 private:
  Id greatestKeyThere() {
    Id key = beforeAll;
    firstRow(to_.database(),
             "SELECT MAX(" + table_.key() + ") AS Greatest FROM " + table_.name + ";",
             [&](const Row& row) { key = row.id("Greatest", key); });
    return key;
  }

  void insert(RowSink& sink, const Row& row) {
    fields_.clear();
    for (const ColumnDef& column : table_.columns)
      fields_.push_back({column.name, row.value(column.name)});
    sink.insertRow(table_.name, fields_);
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
    if (!there) differ(here.front());
    for (std::size_t i = 0; i < here.size(); ++i)
      if (!isEqual(i, here[i], (*there)[i])) differ(here.front());
  }

  [[noreturn]] void differ(const Value& key) const {
    throw DatabaseError(database_error::constraint,
                        "The databases differ in table " + table_.name + ", key " + toText(key) +
                            ": someone has written to one of them; copy it anew (--anew)");
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

/// The table that tells whose copy it is goes first.
void beginCopy(CopyPlace& from, CopyPlace& to, RowSink& sink, const CopyProgress& progress) {
  const std::string there = identityOf(to.database());
  if (there.empty()) return TableCopy(from, to, identityTable(), progress).copy(sink);
  if (there != identityOf(from.database()))
    throw DatabaseError(database_error::foreign,
                        "The target is the unfinished copy of another database; begin anew "
                        "(--anew)");
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
  {
    const std::unique_ptr<RowSink> sink = to.newSink();
    beginCopy(from, to, *sink, progress);
    for (const TableDef& table : schemaTables())
      if (&table != &identityTable()) TableCopy(from, to, table, progress).copy(*sink);
  }
  for (const TableDef& table : schemaTables()) {
    const std::int64_t rows = TableCopy(from, to, table, progress).compare();
    result.rows += rows;
    result.tables += rows > 0;
  }
  to.finish();
  return result;
}

}  // namespace autonotify::host
