#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/database/schema/Schema.h"
#include "platform/Value.h"

namespace autonotify::host {

// What an engine gives to the recordsets. All calls come on one thread, and all failures are thrown
// as DatabaseError. Several statements may be under way between calls, each of which is read by its
// own. Nothing is written while a statement is under way.

/// A column of a result, with the table and column it comes from; those are empty for an
/// expression.
struct ResultColumn {
  std::string name;
  std::string table;
  std::string column;
};

/// A prepared statement, executed any number of times. It may not outlive its driver.
class DriverStatement {
 public:
  virtual ~DriverStatement() = default;

  virtual const std::vector<ResultColumn>& columns() const = 0;

  /// Ends an execution under way and begins one with these values, before the first row.
  virtual void execute(const std::vector<Value>& parameters) = 0;
  /// The next row; False after the last one, where the execution has ended.
  virtual bool step() = 0;
  /// A value of the current row by the kind of the column it comes from (see Value); without one by
  /// what the engine says. Requires: step() gave True.
  virtual Value value(int column, const ColumnDef* origin) const = 0;
  /// An integer of the current row. Requires: step() gave True, and the column is a key.
  virtual Id key(int column) const = 0;
  /// Ends the execution and frees what it holds.
  virtual void reset() noexcept = 0;
  /// Executes a statement that writes; durable on return. Gives the number of rows written.
  virtual int run(const std::vector<Value>& parameters) = 0;
};

/// A transaction, in which all writes of its driver stand or fall together; undone unless it was
/// committed.
class DriverTransaction {
 public:
  virtual ~DriverTransaction() = default;
  /// All of it is durable on return.
  virtual void commit() = 0;
};

/// One connection to an engine.
class Driver {
 public:
  virtual ~Driver() = default;

  /// The words that it understands; placeholders are ? for SQLite and $1, $2 ... for PostgreSQL.
  virtual Engine engine() const = 0;
  virtual std::unique_ptr<DriverStatement> prepare(const std::string& sql) = 0;
  /// Waits for other writers. No second one may be begun while it lives.
  virtual std::unique_ptr<DriverTransaction> beginWriting() = 0;
  /// A key of the table that no one ever had or will be given again, whichever process asks.
  virtual Id reserveKey(const TableDef& table) = 0;
  /// A row with this key, which was not reserved, is about to be added: reserveKey goes on behind
  /// it. Engines that count such rows by themselves need not be told.
  virtual void takeKey(const TableDef&, Id) {}
  /// While it is the same and not 0, statements read what they read before, but for what this
  /// driver's own statements have written. 0 where that is not known.
  virtual std::uint64_t state() { return 0; }
  /// Whether a statement that is executed while another one is under way reads the same state.
  virtual bool sharesState() const { return false; }
  /// Nothing is read for a while: what is held for statements that follow each other is let go.
  virtual void rest() noexcept {}
};

}  // namespace autonotify::host
