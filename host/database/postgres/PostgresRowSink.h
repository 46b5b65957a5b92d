#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/database/RowSink.h"
#include "host/database/postgres/PostgresConnection.h"
#include "host/database/schema/Schema.h"

namespace autonotify::host {

/// Who else writes while rows go in, and so where their keys come from.
enum class KeySource {
  counted,   ///< no one: keys are counted behind the last one, and the sequences follow at commit
  reserved,  ///< others, as on any day: keys come from the sequences, many at a time
};

/// Rows into a PostgreSQL database that holds the schema; those of one shape go to the server many
/// at a time.
///
/// A row outside begin and commit is a transaction of its own. Failures are thrown as
/// DatabaseError, those of a row possibly by a later call.
class PostgresRowSink : public RowSink {
 public:
  /// The connection must outlive the sink.
  explicit PostgresRowSink(PostgresConnection& connection, KeySource keys = KeySource::counted)
      : connection_(connection), keys_(keys) {}

  void begin() override;
  void commit() override;
  Id insertRow(std::string_view table, std::span<const Field> fields) override;
  void updateRow(std::string_view table, Id key, std::span<const Field> fields) override;
  void flush() override;

 private:
  static constexpr std::size_t rowsAtOnce = 200;

  /// Rows that name the same columns of one table.
  struct Batch {
    std::string insert;  // up to the values
    std::vector<std::vector<Value>> rows;
  };

  Batch& batchOf(const TableDef& table, std::span<const Field> fields, bool withKey);
  Id nextKey(const TableDef& table);
  Id& lastKeyOf(const TableDef& table);
  void send(Batch& batch);
  void moveSequences();

  PostgresConnection& connection_;
  KeySource keys_;
  std::shared_ptr<PostgresConnection::Scope> scope_;
  std::map<std::string, Batch> batches_;
  std::string shape_;
  std::map<const TableDef*, Id> lastKeys_;
  std::map<const TableDef*, std::vector<Id>> reserved_;
};

}  // namespace autonotify::host
