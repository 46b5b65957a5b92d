#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/RecordedDatabase.h"

namespace autonotify::bench {

struct StatementDeleter {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};
using RawStatement = std::unique_ptr<sqlite3_stmt, StatementDeleter>;
using RawValue = std::unique_ptr<sqlite3_value, StatementDeleter>;

/// Throws std::runtime_error with SQLite's own words.
RawStatement prepareRaw(sqlite3* connection, std::string_view sql);
/// Reads a column of the current row as what it is, copying nothing.
void readRaw(sqlite3_stmt* statement, int column);
/// Whether a table's column holds numbers, as whoever reads it knows.
bool isNumber(sqlite3_stmt* statement, int column);
/// Reads a column of the current row in one call.
void readKnown(sqlite3_stmt* statement, int column, bool isNumber);

/// The floor: the calls of one piece of work, as nothing but the engine's own statements, prepared
/// before and shared by all pieces. Rows added go in as one INSERT each, with the key and the
/// values that the recorded work stored; a recordset that was opened for adding alone costs
/// nothing.
class Replay {
 public:
  explicit Replay(sqlite3* connection) : connection_(connection) {}

  /// `addedIn` is the connection in which the recorded work has just added its rows.
  void add(const std::vector<DatabaseCall>& calls, sqlite3* addedIn);
  std::size_t pieces() const { return pieces_.size(); }
  void run(std::size_t piece);

 private:
  struct Step {
    enum class Kind { bind, row, read, end };
    Kind kind;
    sqlite3_stmt* statement;
    int place = 0;
    std::size_t value = 0;
    bool isNumber = false;
  };
  using Piece = std::vector<Step>;
  class Composer;

  sqlite3_stmt* statementFor(const std::string& sql, const std::vector<sqlite3_stmt*>& inUse);

  sqlite3* connection_;
  std::multimap<std::string, RawStatement> statements_;
  std::vector<RawValue> values_;
  std::vector<Piece> pieces_;
};

}  // namespace autonotify::bench
