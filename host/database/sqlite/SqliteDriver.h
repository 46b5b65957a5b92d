#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>

#include "host/database/Driver.h"
#include "host/database/sqlite/SqliteSnapshot.h"

struct sqlite3;

namespace autonotify::host {

/// Throws the failure of an SQLite call as a DatabaseError with a number of its own range.
[[noreturn]] void throwSqliteError(sqlite3* connection, int code, const std::string& sql);
/// The same without a connection: `message` is what SQLite said.
[[noreturn]] void throwSqliteError(int code, const std::string& message, const std::string& sql);

/// Runs calls of a connection; their failure becomes a DatabaseError.
template <class Call>
auto translated(Call&& call) {
  try {
    return call();
  } catch (const SQLite::Exception& failure) {
    const int extended = failure.getExtendedErrorCode();
    throwSqliteError(extended != 0 && extended != -1 ? extended : failure.getErrorCode(),
                     failure.what(), {});
  }
}

/// One SQLite connection. Keys are counted in the engine's own table of AUTOINCREMENT counters, so
/// that rows inserted by other means count too.
class SqliteDriver : public Driver {
 public:
  explicit SqliteDriver(SQLite::Database database);
  ~SqliteDriver() override;

  SQLite::Database& database() { return database_; }

  Engine engine() const override { return Engine::sqlite; }
  std::unique_ptr<DriverStatement> prepare(const std::string& sql) override;
  std::unique_ptr<DriverTransaction> beginWriting() override;
  Id reserveKey(const TableDef& table) override;
  std::uint64_t state() override { return snapshot_.state(); }
  bool sharesState() const override { return true; }
  void rest() noexcept override { snapshot_.release(); }

 private:
  Id nextKey(std::int64_t counter, const std::string& table);
  void beginCounter(const TableDef& table);
  std::int64_t counterOf(const TableDef& table);

  SQLite::Database database_;
  bool isInFile_;
  SqliteSnapshot snapshot_;
  std::unique_ptr<DriverStatement> nextKey_;
  std::int64_t told_ = 0;
  // Where the counters were last seen: the engine has no index on their names.
  std::unordered_map<const TableDef*, std::int64_t> counters_;
};

}  // namespace autonotify::host
