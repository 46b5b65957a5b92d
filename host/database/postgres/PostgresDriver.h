#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/database/Driver.h"
#include "host/database/postgres/PostgresConnection.h"

namespace autonotify::host {

/// The sequence behind the key of a table, as an expression.
std::string sequenceOf(const TableDef& table);

/// The names of the tables and columns of a schema by the server's numbers.
class PostgresCatalogue {
 public:
  /// The names of a result's columns as this program spells them, read from the server once.
  std::vector<ResultColumn> columnsOf(PostgresConnection& connection, const pqxx::result& result);

 private:
  struct Table {
    std::string name;
    std::vector<std::string> columns;  // by their number, from 1
  };
  void read(PostgresConnection& connection);

  std::unordered_map<pqxx::oid, Table> tables_;
};

/// One PostgreSQL connection.
///
/// A result of at most `window` rows comes in one exchange. A longer one is read through a cursor,
/// a window at a time, within a transaction that only reads. Keys come from the sequences of the
/// tables' identity columns. A server that is away shows as an error of the call that needs it,
/// which may be tried again.
class PostgresDriver : public Driver {
 public:
  static constexpr int window = 256;

  explicit PostgresDriver(ServerAddress address) : connection_(std::move(address)) {}

  PostgresConnection& connection() { return connection_; }
  PostgresCatalogue& catalogue() { return catalogue_; }

  /// The server may drop the prepared statement; it does so before the next one is prepared.
  void forget(std::string statement) { forgotten_.push_back(std::move(statement)); }

  Engine engine() const override { return Engine::postgres; }
  std::unique_ptr<DriverStatement> prepare(const std::string& sql) override;
  std::unique_ptr<DriverTransaction> beginWriting() override;
  Id reserveKey(const TableDef& table) override;
  void takeKey(const TableDef& table, Id key) override;

 private:
  PostgresConnection connection_;
  PostgresCatalogue catalogue_;
  std::vector<std::string> forgotten_;
  std::unordered_map<const TableDef*, std::unique_ptr<DriverStatement>> nextKeys_;
  int statements_ = 0;
};

}  // namespace autonotify::host
