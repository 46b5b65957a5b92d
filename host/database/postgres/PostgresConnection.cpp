#include "host/database/postgres/PostgresConnection.h"

#include <libpq-fe.h>
#include <poll.h>

#include <pqxx/except>
#include <string_view>

#include "host/database/dialect/DatabaseError.h"
#include "host/words/Words.h"
#include "platform/date_time_text.h"

namespace autonotify::host {
namespace {

struct Failure {
  std::string_view state;  // how the SQLSTATE begins
  int number;
  const char* description;
};

// The first row that fits counts.
constexpr Failure failures[] = {
    {"08", database_error::connectionLost,
     Words::later("The connection to the database server was lost")},
    {"57P0", database_error::connectionLost,
     Words::later("The database server has ended the connection")},
    {"53100", database_error::diskFull, Words::later("The disk of the database server is full")},
    {"53", database_error::locked, Words::later("The database server is overloaded")},
    {"40", database_error::locked, Words::later("The row is being changed by another user")},
    {"55P03", database_error::locked, Words::later("The row is being changed by another user")},
    {"25006", database_error::readOnly, Words::later("The database can only be read")},
    {"42501", database_error::notPermitted,
     Words::later("The database user has no right to do this")},
    {"2200H", database_error::keysExhausted, Words::later("No key is left in the table")},
    {"23", database_error::constraint, Words::later("The row breaks a rule of its table")},
    {"22", database_error::statementFailed, Words::later("The database does not accept a value")},
    {"42", database_error::statementFailed,
     Words::later("The database does not accept the statement")},
    {"3F", database_error::statementFailed, Words::later("The database has no such schema")},
    {"58", database_error::inputOutput,
     Words::later("The database server cannot read or write its files")},
    {"XX0", database_error::corrupt, Words::later("The database is damaged")},
};

const Failure* findFailure(std::string_view state) {
  for (const Failure& failure : failures)
    if (state.starts_with(failure.state)) return &failure;
  return nullptr;
}

/// The first line of the server's words, without what they begin with.
std::string wordsOf(const std::exception& error) {
  std::string_view text = error.what();
  text = text.substr(0, text.find('\n'));
  for (const std::string_view start : {"ERROR:", "FATAL:"})
    if (text.starts_with(start)) text.remove_prefix(start.size());
  return std::string(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

/// Whether the server has hung up. Asks the local socket only.
bool isGone(pqxx::connection_base& connection) {
  pollfd watched{connection.sock(), POLLIN, 0};
  try {
    while (connection.is_open() && ::poll(&watched, 1, 0) > 0) connection.get_notifs();
  } catch (const pqxx::broken_connection&) {
    return true;
  }
  return !connection.is_open();
}

struct TextOf {
  std::string operator()(Null) const { return {}; }
  std::string operator()(bool flag) const { return flag ? "t" : "f"; }
  std::string operator()(DateTime moment) const { return dateTimeText(moment); }
  std::string operator()(const std::string& text) const { return text; }
  template <class Number>
  std::string operator()(Number number) const {
    return toText(Value(number));
  }
};

}  // namespace

PostgresParameters::PostgresParameters(const std::vector<Value>& values) {
  texts_.reserve(values.size());
  pointers_.reserve(values.size());
  for (const Value& value : values) {
    texts_.push_back(value.visit(TextOf{}));
    pointers_.push_back(value.isNull() ? nullptr : texts_.back().c_str());
  }
}

PostgresConnection::PostgresConnection(ServerAddress address) : address_(std::move(address)) {
  connect(database_error::cannotOpen);
}

// Only a connection that was begun can be told who hears notices; it is begun anew then, for that
// alone heeds the time limit of each server.
PostgresConnection::QuietPolicy::handle PostgresConnection::QuietPolicy::do_startconnect(
    handle connection) {
  if (connection) return connection;
  std::unique_ptr<PGconn, decltype(&PQfinish)> begun(PQconnectStart(options().c_str()), &PQfinish);
  if (!begun) throw std::bad_alloc();
  PQsetNoticeProcessor(
      begun.get(), [](void*, const char*) {}, nullptr);
  PQreset(begun.get());
  if (PQstatus(begun.get()) != CONNECTION_OK)
    throw pqxx::broken_connection(PQerrorMessage(begun.get()));
  return begun.release();
}

// A server may be set not to wait for its disk; what is reported as stored must be.
void PostgresConnection::connect(int failure) try {
  link_ = std::make_shared<Link>(address_.parameters());
  ++generation_;
  pqxx::nontransaction(link_->connection)
      .exec(
          "SELECT set_config('synchronous_commit', 'on', FALSE) WHERE "
          "current_setting('synchronous_commit') = 'off'");
} catch (const pqxx::failure& error) {
  throw DatabaseError(failure,
                      Words::tr("The database server cannot be reached: %1", {wordsOf(error)}));
}

void PostgresConnection::drop() noexcept {
  scope_.reset();
  link_.reset();
}

PostgresConnection::Link& PostgresConnection::link() {
  if (link_ && isGone(link_->connection)) drop();
  if (!link_) connect(database_error::connectionLost);
  return *link_;
}

template <class Transaction>
std::shared_ptr<PostgresConnection::Scope> PostgresConnection::begin() try {
  link();
  auto scope = std::make_shared<Scope>(link_, std::make_unique<Transaction>(link_->connection));
  scope_ = scope;
  return scope;
} catch (...) {
  fail({});
}

std::shared_ptr<PostgresConnection::Scope> PostgresConnection::beginReading() {
  if (std::shared_ptr<Scope> shared = scope_.lock()) return shared;
  return begin<pqxx::read_transaction>();
}

std::shared_ptr<PostgresConnection::Scope> PostgresConnection::beginWriting() {
  return begin<pqxx::work>();
}

void PostgresConnection::commit(Scope& scope) {
  perform(scope, {}, [](pqxx::transaction_base& transaction) { transaction.commit(); });
  scope_.reset();
}

pqxx::result PostgresConnection::execute(const std::string& sql) {
  return perform(sql, [&](pqxx::transaction_base& transaction) { return transaction.exec(sql); });
}

pqxx::result PostgresConnection::execute(const std::string& sql,
                                         const std::vector<Value>& parameters) {
  const PostgresParameters bound(parameters);
  return perform(sql, [&](pqxx::transaction_base& transaction) {
    return transaction.exec_params(sql, bound.all());
  });
}

pqxx::result PostgresConnection::executeApart(const std::string& sql,
                                              const std::vector<Value>& parameters) {
  const std::shared_ptr<Scope> scope = scope_.lock();
  if (!scope) return execute(sql, parameters);
  execute("SAVEPOINT apart");
  try {
    pqxx::result result = execute(sql, parameters);
    execute("RELEASE SAVEPOINT apart");
    return result;
  } catch (const DatabaseError& error) {
    if (error.number() != database_error::connectionLost) execute("ROLLBACK TO SAVEPOINT apart");
    throw;
  }
}

void PostgresConnection::failLost(const std::exception& error, const std::string& sql) {
  drop();
  throw DatabaseError(
      database_error::connectionLost,
      Words::tr("The connection to the database server was lost: %1", {wordsOf(error)}), 0, sql);
}

void PostgresConnection::fail(const std::string& sql) {
  try {
    throw;
  } catch (const pqxx::sql_error& error) {
    const Failure* known = findFailure(error.sqlstate());
    if ((link_ && !link_->connection.is_open()) ||
        (known && known->number == database_error::connectionLost))
      failLost(error, sql);
    const char* description = known ? known->description : Words::later("The database failed");
    throw DatabaseError(
        known ? known->number : database_error::engineFailure,
        Words::tr("%1: %2", {Words::tr(description), wordsOf(error)}) +
            (error.sqlstate().empty() ? "" : " (SQLSTATE " + error.sqlstate() + ")"),
        0, sql);
  } catch (const pqxx::failure& error) {
    failLost(error, sql);
  }
}

}  // namespace autonotify::host
