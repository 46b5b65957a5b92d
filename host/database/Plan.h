#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/database/Driver.h"
#include "host/database/dialect/Dialect.h"
#include "host/database/schema/caseless.h"

namespace autonotify::host {

struct PlanColumn {
  std::string name;
  /// The column of the schema it comes from; both nullptr for an expression.
  const TableDef* table = nullptr;
  const ColumnDef* origin = nullptr;
  /// The place of its table among Plan::tables; -1 when its rows are not told apart.
  int tableIndex = -1;
  /// Its place among Plan::kept(), or -1.
  int keptAt = -1;
};

/// What is known of a statement before it runs, shared by all recordsets of the same text.
///
/// A keyed plan selects the keys of its tables behind the columns asked for, so that each row can
/// be read again by its keys, whatever has been written since. A plan is not keyed when rows are no
/// rows of tables (groups, unions, outer joins) or when a table is none of the schema.
///
/// What the statement leaves open about the order of its rows is settled by the keys of its tables,
/// from left to right, so that all engines give them in one order. Groups and unions have no keys.
class Plan {
 public:
  /// Prepares the statement. Throws DatabaseError when the engine does not accept it.
  Plan(Driver& driver, const Translation& translation);

  /// Learns the columns, once; nothing below can be asked for before, but for tables and rows. An
  /// engine that is asked over a network knows them for nothing when rows() has been executed.
  /// Throws DatabaseError when the engine does not accept the statement.
  void describe();

  const std::vector<PlanColumn>& columns() const { return columns_; }
  /// The tables of the FROM clause, each with a key; empty when not keyed.
  const std::vector<const TableDef*>& tables() const { return tables_; }
  bool isKeyed() const { return !tables_.empty(); }
  /// All rows of one table, in no order that was asked for.
  bool isWholeTable() const { return isWholeTable_; }

  /// The place of the first column with this name, in any case, or with this name behind its
  /// table's and a dot. Throws DatabaseError (unknownColumn).
  int columnIndex(std::string_view name) const;
  /// The columns whose values are kept when a recordset leaves a row, in this order: those that
  /// were once asked for after the row was left; without keys, all. Columns are added at the end.
  const std::vector<int>& kept() const { return kept_; }
  void keep(int column);

  /// The key of tables()[table] in the rows of `rows()` and `rowByKeys()`.
  int keyColumn(int table) const { return static_cast<int>(columns_.size()) + table; }

  DriverStatement& rows() { return *rows_; }
  /// One row by the keys of all tables, in their order. Requires: isKeyed().
  DriverStatement& rowByKeys();

 private:
  std::string rowsSql(const Translation& translation);
  std::string keyBy(const Translation& translation, const std::vector<std::string>& keys);
  void nameColumns();

  Driver& driver_;
  std::vector<const TableDef*> tables_;
  std::vector<PlanColumn> columns_;
  std::vector<int> kept_;
  CaselessMap<int> byName_;
  std::unique_ptr<DriverStatement> rows_;
  std::string rowByKeysSql_;
  std::unique_ptr<DriverStatement> rowByKeys_;
  bool isWholeTable_ = false;
};

}  // namespace autonotify::host
