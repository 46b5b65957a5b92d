#include "host/database/postgres/PostgresDriver.h"

#include "host/database/dialect/DatabaseError.h"
#include "host/database/postgres/PostgresStatement.h"
#include "host/database/schema/caseless.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr const char* catalogueSql =
    "SELECT c.oid, c.relname, a.attnum, a.attname FROM pg_class c JOIN pg_attribute a ON "
    "a.attrelid = c.oid WHERE c.relnamespace = current_schema()::regnamespace AND c.relkind = 'r' "
    "AND a.attnum > 0 AND NOT a.attisdropped";

/// Fails when its connection is lost, also where a later statement has made a new one.
class PostgresTransaction : public DriverTransaction {
 public:
  explicit PostgresTransaction(PostgresConnection& connection)
      : connection_(connection), scope_(connection.beginWriting()) {}

  void commit() override { connection_.commit(*scope_); }

 private:
  PostgresConnection& connection_;
  std::shared_ptr<PostgresConnection::Scope> scope_;
};

}  // namespace

std::string sequenceOf(const TableDef& table) {
  return "pg_get_serial_sequence('" + lowerCase(table.name) + "', '" + lowerCase(table.key()) +
         "')";
}

void PostgresCatalogue::read(PostgresConnection& connection) {
  for (const pqxx::row& row : connection.execute(catalogueSql)) {
    Table& table = tables_[row[0].as<pqxx::oid>()];
    const TableDef* known = findTable(row[1].c_str());
    table.name = known ? known->name : row[1].c_str();
    const auto number = row[2].as<std::size_t>();
    if (table.columns.size() <= number) table.columns.resize(number + 1);
    const ColumnDef* column = findColumn(table.name, row[3].c_str());
    table.columns[number] = column ? column->name : row[3].c_str();
  }
}

std::vector<ResultColumn> PostgresCatalogue::columnsOf(PostgresConnection& connection,
                                                       const pqxx::result& result) {
  if (tables_.empty()) read(connection);
  std::vector<ResultColumn> columns;
  for (int i = 0; i < static_cast<int>(result.columns()); ++i) {
    ResultColumn& column = columns.emplace_back();
    column.name = result.column_name(i);
    const auto origin = tables_.find(result.column_table(i));
    if (origin == tables_.end()) continue;
    column.table = origin->second.name;
    // The library counts from 0, the server from 1.
    column.column = origin->second.columns.at(result.table_column(i) + 1u);
    if (CaselessEqual{}(column.name, column.column)) column.name = column.column;
  }
  return columns;
}

std::unique_ptr<DriverStatement> PostgresDriver::prepare(const std::string& sql) {
  for (const std::string& name : forgotten_)
    connection_.perform(
        {}, [&](pqxx::transaction_base& transaction) { transaction.conn().unprepare(name); });
  forgotten_.clear();
  return std::make_unique<PostgresStatement>(*this, sql, "s" + std::to_string(++statements_));
}

std::unique_ptr<DriverTransaction> PostgresDriver::beginWriting() {
  return std::make_unique<PostgresTransaction>(connection_);
}

Id PostgresDriver::reserveKey(const TableDef& table) {
  std::unique_ptr<DriverStatement>& next = nextKeys_[&table];
  if (!next) next = prepare("SELECT nextval(" + sequenceOf(table) + ")");
  next->execute({});
  next->step();
  const Id key = next->key(0);
  next->reset();
  return key;
}

// Keys may be reserved by others meanwhile, so that a sequence may not simply be set: it could fall
// behind them. Over a short way it is stepped; over a long one it is set, since no one else gets
// that far meanwhile. Whoever sets it waits for others who do.
void PostgresDriver::takeKey(const TableDef& table, Id key) {
  const std::string sequence = sequenceOf(table);
  const auto scope = connection_.beginWriting();
  connection_.execute("SELECT pg_advisory_xact_lock(" + sequence + "::regclass::oid::bigint)");
  connection_.execute(
      "SELECT CASE WHEN $1::bigint - reached > 1000 THEN setval(" + sequence +
          ", $1::bigint) WHEN $1::bigint > reached THEN (SELECT max(nextval(" + sequence +
          ")) FROM generate_series(1, $1::bigint - reached)) END FROM (SELECT nextval(" + sequence +
          ") AS reached) AS now",
      {key});
  connection_.commit(*scope);
}

}  // namespace autonotify::host
