#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/database/RowSink.h"
#include "host/database/postgres/PostgresConnection.h"
#include "host/database/schema/Schema.h"

namespace autonotify::host {

/// Rows into a PostgreSQL database that holds the schema and that no one else writes to: generated
/// keys are counted here, and rows of one shape go to the server many at a time.
///
/// A row outside begin and commit is a transaction of its own. Failures are thrown as
/// DatabaseError, those of a row possibly by a later call.
class PostgresRowSink : public RowSink {
 public:
  /// The connection must outlive the sink.
  explicit PostgresRowSink(PostgresConnection& connection) : connection_(connection) {}

  void begin() override;
  void commit() override;
  Id insertRow(std::string_view table, std::span<const Field> fields) override;

 private:
  static constexpr std::size_t rowsAtOnce = 200;

  /// Rows that name the same columns of one table.
  struct Batch {
    std::string insert;  // up to the values
    std::vector<std::vector<Value>> rows;
  };

  Batch& batchOf(const TableDef& table, std::span<const Field> fields, bool withKey);
  Id& lastKeyOf(const TableDef& table);
  void send(Batch& batch);
  void moveSequences();

  PostgresConnection& connection_;
  std::shared_ptr<PostgresConnection::Scope> scope_;
  std::map<std::string, Batch> batches_;
  std::string shape_;
  std::map<const TableDef*, Id> lastKeys_;
};

}  // namespace autonotify::host
