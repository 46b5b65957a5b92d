#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/database/AskedNames.h"
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

/// A statement that gives rows of a plan, and where in them the plan's columns stand.
struct RowStatement {
  struct Source {
    int place = -1;  // or -1 where it gives no value of the column
    const ColumnDef* origin = nullptr;
  };

  std::unique_ptr<DriverStatement> statement;
  int keysFrom = 0;
  std::vector<Source> sources;  // by column, once the plan is described

  bool gives(int column) const { return sources[static_cast<std::size_t>(column)].place >= 0; }
  /// Of the row that the statement is on. Requires: gives(column).
  Value value(int column) const {
    const Source& source = sources[static_cast<std::size_t>(column)];
    return statement->value(source.place, source.origin);
  }
  /// The key of the plan's tables()[table].
  int keyPlace(int table) const { return keysFrom + table; }
};

/// What is known of a statement before it runs, shared by all recordsets of the same text.
///
/// A keyed plan selects the keys of its tables behind the columns asked for, so that each row can
/// be read again by its keys, whatever has been written since. A plan is not keyed when rows are no
/// rows of tables (groups, unions, outer joins) or when a table is none of the schema.
///
/// Of a wide row seldom more than a few columns are asked for. Once these have settled, or a walk
/// over a whole table has shown them, the rows come with them alone, and one that is asked for
/// later is read by the row's keys.
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
  /// All tables whose rows it depends on; empty when they are not known.
  const std::vector<const TableDef*>& tablesRead() const { return tablesRead_; }
  /// The row of one table that has a given key.
  bool isOneRow() const { return isOneRow_; }
  /// A few columns of those rows of one table in which a column of integers has a given value.
  bool isLookUp() const { return !sought_.empty() && !mayBeNarrow_ && !tablesRead_.empty(); }
  /// All rows of one table, in no order that was asked for.
  bool isWholeTable() const { return isWholeTable_; }

  /// The place of the first column with this name, in any case, or with this name behind its
  /// table's and a dot. Throws DatabaseError (unknownColumn).
  int columnIndex(std::string_view name) const {
    const int known = askedNames_.find(name);
    return known >= 0 ? known : findColumnIndex(name);
  }
  /// The columns whose values are kept when a recordset leaves a row, in this order: those that
  /// were once asked for after the row was left; without keys, all. Columns are added at the end.
  const std::vector<int>& kept() const { return kept_; }
  void keep(int column);

  /// The column's value is wanted. Rows of tables give none that was never asked for.
  void ask(int column) {
    if (!all_->gives(column)) askAnother(column);
  }

  /// What to execute next for the rows.
  const std::shared_ptr<RowStatement>& rows();
  /// The rows with the columns that were asked for until now; null where they come whole always.
  const std::shared_ptr<RowStatement>& narrowRows();
  /// One row by the keys of all tables, in their order, with all columns. Requires: isKeyed().
  const RowStatement& rowByKeys();

  /// As many rows as blockByKeys can ask for.
  static constexpr std::size_t blockRows = 256;
  /// A join is read row by row: its keys in any combination could be rows by the thousand.
  bool hasBlocks() const { return tables_.size() == 1; }
  /// Rows by blockRows keys, which may repeat, in any order, with all columns. Requires:
  /// hasBlocks().
  const RowStatement& blockByKeys();
  /// The rows of a look-up of all values from the first parameter up to the second, in any order,
  /// with all columns and behind the key that value; no more than blockRows, which a server gives
  /// at once. Requires: isLookUp().
  const RowStatement& rowsAhead();

 private:
  int findColumnIndex(std::string_view name) const;
  std::string rowsSql(const Translation& translation);
  std::string keyBy(const Translation& translation, const std::vector<std::string>& keys);
  void nameColumns();
  void askAnother(int column);
  std::shared_ptr<RowStatement> withAskedColumns() const;

  Driver& driver_;
  std::vector<const TableDef*> tables_;
  std::vector<const TableDef*> tablesRead_;
  std::vector<PlanColumn> columns_;
  std::vector<int> kept_;
  CaselessMap<int> byName_;
  mutable AskedNames askedNames_;
  // With all columns, of which it gives those that were asked for.
  std::shared_ptr<RowStatement> all_ = std::make_shared<RowStatement>();
  std::string rowByKeysSql_;
  RowStatement rowByKeys_;
  std::string blockByKeysSql_;
  RowStatement blockByKeys_;
  std::string sought_;  // the column of a look-up, as the statement names it
  std::string rowsAheadSql_;
  RowStatement rowsAhead_;
  std::string behindColumns_;  // empty where it may mean them by their places
  bool mayBeNarrow_ = false;
  std::vector<std::string> keys_;  // of the tables, as the statement names them
  int settledRuns_ = 0;
  std::shared_ptr<RowStatement> narrow_;
  bool isWholeTable_ = false;
  bool isOneRow_ = false;
};

}  // namespace autonotify::host
