#include "host/database/sqlite/SqliteDriver.h"

#include <sqlite3.h>

#include <limits>
#include <optional>
#include <string_view>

#include "host/database/dialect/DatabaseError.h"
#include "host/words/Words.h"
#include "platform/date_time_text.h"

namespace autonotify::host {
namespace {

struct Failure {
  int code;  // SQLite's, without its extension
  int number;
  const char* description;
};

constexpr Failure failures[] = {
    {SQLITE_BUSY, database_error::locked, Words::later("The database is locked by another user")},
    {SQLITE_LOCKED, database_error::locked, Words::later("The database is locked")},
    {SQLITE_FULL, database_error::diskFull, Words::later("The disk is full")},
    {SQLITE_READONLY, database_error::readOnly, Words::later("The database can only be read")},
    {SQLITE_CORRUPT, database_error::corrupt, Words::later("The database file is damaged")},
    {SQLITE_NOTADB, database_error::corrupt, Words::later("The file is not a database")},
    {SQLITE_CANTOPEN, database_error::cannotOpen,
     Words::later("The database file cannot be opened")},
    {SQLITE_PERM, database_error::cannotOpen, Words::later("The database file may not be opened")},
    {SQLITE_IOERR, database_error::inputOutput,
     Words::later("The database file cannot be read or written; the disk may be full")},
    {SQLITE_CONSTRAINT, database_error::constraint,
     Words::later("The row breaks a rule of its table")},
    {SQLITE_ERROR, database_error::statementFailed,
     Words::later("The database does not accept the statement")},
};

// Asked for text, the engine would copy it to put a NUL byte behind it. Files are UTF-8.
std::string_view textOf(sqlite3_value* held) {
  const auto* data = static_cast<const char*>(sqlite3_value_blob(held));
  return {data, static_cast<std::size_t>(sqlite3_value_bytes(held))};
}

/// IsDate: a date in the form in which dates are stored, which alone compares rightly.
void testDate(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(*arguments) == SQLITE_NULL) return;
  const std::string_view text = textOf(*arguments);
  const auto moment = parseDateTime(text);
  sqlite3_result_int(context, moment && text.starts_with(dateTimeText(moment->dateOnly())));
}

/// Of a value that is there and no integer; apart, so that the many others pay nothing for it.
[[gnu::noinline]] Value otherValue(sqlite3_value* held, int type, const ColumnDef* origin) {
  if (origin && origin->kind == ColumnKind::Flag) return sqlite3_value_int64(held) != 0;
  if (type == SQLITE_FLOAT) return sqlite3_value_double(held);
  const std::string_view text = textOf(held);
  if (origin && origin->kind == ColumnKind::DateTime)
    if (const auto moment = parseDateTime(text)) return *moment;
  return std::string(text);
}

/// A statement of the engine. The engine's own interface is used here for what the wrapper around
/// the connection does not give: the table a column comes from, and reading without copies.
class SqliteStatement : public DriverStatement {
 public:
  SqliteStatement(sqlite3* connection, SqliteSnapshot& snapshot, const std::string& sql)
      : connection_(connection), snapshot_(snapshot) {
    check(sqlite3_prepare_v3(connection, sql.c_str(), static_cast<int>(sql.size()) + 1,
                             SQLITE_PREPARE_PERSISTENT, &statement_, nullptr),
          sql);
    try {
      texts_.resize(static_cast<std::size_t>(sqlite3_bind_parameter_count(statement_)));
      describe();
    } catch (...) {
      sqlite3_finalize(statement_);
      throw;
    }
  }
  ~SqliteStatement() override { sqlite3_finalize(statement_); }
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  const std::vector<ResultColumn>& columns() const override { return columns_; }

  void execute(const std::vector<Value>& parameters) override {
    reset();
    snapshot_.beginReading();
    bindAll(parameters);
  }

  bool step() override {
    isUnderWay_ = true;
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) {
      reset();
      return false;
    }
    fail(code);
  }

  Value value(int column, const ColumnDef* origin) const override {
    sqlite3_value* const held = sqlite3_column_value(statement_, column);
    const int type = sqlite3_value_type(held);
    if (type == SQLITE_NULL) return Null{};
    if (type != SQLITE_INTEGER) return otherValue(held, type, origin);
    const std::int64_t number = sqlite3_value_int64(held);
    if (origin && origin->kind == ColumnKind::Flag) return number != 0;
    return number;
  }

  Id key(int column) const override { return sqlite3_column_int(statement_, column); }

  void reset() noexcept override {
    if (isUnderWay_) sqlite3_reset(statement_);
    isUnderWay_ = false;
  }

  int run(const std::vector<Value>& parameters) override {
    reset();
    snapshot_.release();
    bindAll(parameters);
    const std::int64_t before = sqlite3_total_changes64(connection_);
    step();
    reset();
    snapshot_.countOwn(sqlite3_total_changes64(connection_) - before);
    return sqlite3_changes(connection_);
  }

 private:
  void describe() {
    const auto text = [](const char* name) { return std::string(name ? name : ""); };
    for (int i = 0; i < sqlite3_column_count(statement_); ++i)
      columns_.push_back({text(sqlite3_column_name(statement_, i)),
                          text(sqlite3_column_table_name(statement_, i)),
                          text(sqlite3_column_origin_name(statement_, i))});
  }

  void bindAll(const std::vector<Value>& parameters) {
    for (std::size_t i = 0; i < parameters.size(); ++i)
      parameters[i].visit([&](const auto& value) { bind(static_cast<int>(i + 1), value); });
  }
  void bind(int place, Null) { check(sqlite3_bind_null(statement_, place)); }
  void bind(int place, bool flag) { check(sqlite3_bind_int(statement_, place, flag)); }
  void bind(int place, std::int64_t number) {
    check(sqlite3_bind_int64(statement_, place, number));
  }
  void bind(int place, double number) { check(sqlite3_bind_double(statement_, place, number)); }
  void bind(int place, DateTime moment) { bind(place, dateTimeText(moment)); }
  void bind(int place, const std::string& text) {
    std::string& kept = texts_[static_cast<std::size_t>(place - 1)];
    kept = text;
    check(sqlite3_bind_text64(statement_, place, kept.data(), kept.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
  }

  void check(int code) {
    if (code != SQLITE_OK) fail(code);
  }
  void check(int code, const std::string& sql) {
    if (code != SQLITE_OK) throwSqliteError(connection_, code, sql);
  }
  [[noreturn]] void fail(int code) {
    const std::string message = sqlite3_errmsg(connection_);
    const char* sql = sqlite3_sql(statement_);
    reset();
    throwSqliteError(code, message, sql ? sql : "");
  }

  sqlite3* connection_;
  SqliteSnapshot& snapshot_;
  sqlite3_stmt* statement_ = nullptr;
  bool isUnderWay_ = false;
  std::vector<ResultColumn> columns_;
  std::vector<std::string> texts_;  // bound, by parameter
};

/// Has the right to write from its beginning: whoever waits for that in its midst may wait for
/// ever.
class SqliteTransaction : public DriverTransaction {
 public:
  explicit SqliteTransaction(SQLite::Database& database) : database_(database) {
    run("BEGIN IMMEDIATE");
  }
  ~SqliteTransaction() override {
    // The engine may have undone it by itself.
    if (!isCommitted_) database_.tryExec("ROLLBACK");
  }
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;

  void commit() override {
    run("COMMIT");
    isCommitted_ = true;
  }

 private:
  void run(const char* sql) {
    translated([&] { return database_.exec(sql); });
  }

  SQLite::Database& database_;
  bool isCommitted_ = false;
};

/// Commits within its life are not waited for. A key that a crash takes back was seen by no one:
/// the row that carries it is written after it, and with that write both last.
class QuickCommits {
 public:
  explicit QuickCommits(SQLite::Database& database) : database_(database) {
    database_.tryExec("PRAGMA synchronous=NORMAL");
  }
  ~QuickCommits() { database_.tryExec("PRAGMA synchronous=FULL"); }
  QuickCommits(const QuickCommits&) = delete;
  QuickCommits& operator=(const QuickCommits&) = delete;

 private:
  SQLite::Database& database_;
};

/// Told: the number that is written comes to the driver too. RETURNING would make a table for it.
constexpr const char* nextKeySql =
    "UPDATE sqlite_sequence SET seq=Told(seq+1) WHERE rowid=? AND name=?";

void tell(sqlite3_context* context, int, sqlite3_value** arguments) {
  const bool isNumber = sqlite3_value_type(*arguments) == SQLITE_INTEGER;
  *static_cast<std::int64_t*>(sqlite3_user_data(context)) =
      isNumber ? sqlite3_value_int64(*arguments) : std::numeric_limits<std::int64_t>::max();
  sqlite3_result_value(context, *arguments);
}

}  // namespace

void throwSqliteError(int code, const std::string& message, const std::string& sql) {
  const Failure* failure = failures;
  while (failure != std::end(failures) && failure->code != (code & 0xFF)) ++failure;
  const bool known = failure != std::end(failures);
  const char* description = known ? failure->description : Words::later("The database failed");
  throw DatabaseError(known ? failure->number : database_error::engineFailure,
                      Words::tr("%1: %2", {Words::tr(description), message}), code, sql);
}

void throwSqliteError(sqlite3* connection, int code, const std::string& sql) {
  throwSqliteError(connection ? sqlite3_extended_errcode(connection) : code,
                   connection ? sqlite3_errmsg(connection) : sqlite3_errstr(code), sql);
}

SqliteDriver::SqliteDriver(SQLite::Database database)
    : database_(std::move(database)),
      isInFile_(*sqlite3_db_filename(database_.getHandle(), "main") != 0),
      snapshot_(database_.getHandle()) {
  translated([&] {
    database_.createFunction("IsDate", 1, true, nullptr, testDate);
    database_.createFunction("Told", 1, false, &told_, tell);
  });
}

SqliteDriver::~SqliteDriver() = default;

std::unique_ptr<DriverStatement> SqliteDriver::prepare(const std::string& sql) {
  return std::make_unique<SqliteStatement>(database_.getHandle(), snapshot_, sql);
}

std::unique_ptr<DriverTransaction> SqliteDriver::beginWriting() {
  snapshot_.release();
  return std::make_unique<SqliteTransaction>(database_);
}

Id SqliteDriver::nextKey(std::int64_t counter, const std::string& table) {
  if (!nextKey_) nextKey_ = prepare(nextKeySql);
  if (nextKey_->run({counter, table}) == 0) return noId;
  if (told_ > std::numeric_limits<Id>::max())
    throw DatabaseError(database_error::keysExhausted,
                        Words::tr("No key is left in table %1", {table}));
  return static_cast<Id>(told_);
}

Id SqliteDriver::reserveKey(const TableDef& table) {
  std::optional<QuickCommits> quick;
  if (isInFile_) quick.emplace(database_);
  std::int64_t& counter = counters_[&table];
  if (counter == 0) counter = counterOf(table);
  const Id key = nextKey(counter, table.name);
  if (key != noId) return key;
  beginCounter(table);
  counter = counterOf(table);
  return nextKey(counter, table.name);
}

std::int64_t SqliteDriver::counterOf(const TableDef& table) {
  const auto counter = prepare("SELECT rowid FROM sqlite_sequence WHERE name='" + table.name + "'");
  counter->execute({});
  return counter->step() ? toInteger(counter->value(0, nullptr)) : 0;
}

// The engine begins a counter with the first row that it inserts by itself. Two processes that come
// here together leave one counter, since the test and the insert are one statement.
void SqliteDriver::beginCounter(const TableDef& table) {
  const std::string greatest = "(SELECT max(" + table.key() + ") FROM " + table.name + ")";
  prepare("INSERT INTO sqlite_sequence(name, seq) SELECT '" + table.name + "', coalesce(" +
          greatest + ", 0) WHERE NOT EXISTS (SELECT 1 FROM sqlite_sequence WHERE name='" +
          table.name + "')")
      ->run({});
}

}  // namespace autonotify::host
