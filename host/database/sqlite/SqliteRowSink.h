#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "host/database/RowSink.h"

namespace SQLite {
class Database;
class Statement;
class Transaction;
}  // namespace SQLite

namespace autonotify::host {

/// Rows into an SQLite database that holds the schema. One prepared statement per table and list
/// of columns is kept for all rows of that shape.
class SqliteRowSink : public RowSink {
 public:
  /// The database must outlive the sink.
  explicit SqliteRowSink(SQLite::Database& database);
  /// Rolls back what was not committed.
  ~SqliteRowSink() override;

  void begin() override;
  void commit() override;
  Id insertRow(std::string_view table, std::span<const Field> fields) override;
  void updateRow(std::string_view table, Id key, std::span<const Field> fields) override;

 private:
  using TextOf = std::string (*)(std::string_view table, std::span<const Field> fields);
  SQLite::Statement& statementFor(const char* verb, TextOf textOf, std::string_view table,
                                  std::span<const Field> fields);

  SQLite::Database& database_;
  std::unordered_map<std::string, std::unique_ptr<SQLite::Statement>> statements_;
  std::string shape_;
  std::unique_ptr<SQLite::Transaction> transaction_;
};

}  // namespace autonotify::host
