#include "host/copy/CopyPlace.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/postgres/PostgresDatabase.h"
#include "host/database/postgres/PostgresRowSink.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/database/sqlite/SqliteDriver.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/desk/databases.h"

namespace autonotify::host {
namespace {

class SqlitePlace : public CopyPlace {
 public:
  SqlitePlace(std::unique_ptr<SqliteDatabase> database, bool isFinished)
      : CopyPlace(isFinished), database_(std::move(database)) {}

  Engine engine() const override { return Engine::sqlite; }
  RecordsetDatabase& database() override { return *database_; }
  std::unique_ptr<RowSink> newSink() override {
    return std::make_unique<SqliteRowSink>(database_->connection());
  }
  std::int64_t counter(const TableDef& table) override {
    return translated([&] {
      SQLite::Statement ask(database_->connection(),
                            "SELECT coalesce(max(seq), 0) FROM sqlite_sequence WHERE name=?");
      ask.bind(1, table.name);
      ask.executeStep();
      return ask.getColumn(0).getInt64();
    });
  }
  void setCounter(const TableDef& table, std::int64_t key) override {
    const std::string sql = "BEGIN; DELETE FROM sqlite_sequence WHERE name='" + table.name +
                            "'; INSERT INTO sqlite_sequence(name, seq) VALUES ('" + table.name +
                            "', " + std::to_string(key) + "); COMMIT";
    translated([&] { return database_->connection().exec(sql); });
  }
  void finish() override { finishSqlite(*database_); }

 private:
  std::unique_ptr<SqliteDatabase> database_;
};

class PostgresPlace : public CopyPlace {
 public:
  PostgresPlace(std::unique_ptr<PostgresDatabase> database, bool isFinished)
      : CopyPlace(isFinished), database_(std::move(database)) {}

  Engine engine() const override { return Engine::postgres; }
  RecordsetDatabase& database() override { return *database_; }
  std::unique_ptr<RowSink> newSink() override {
    return std::make_unique<PostgresRowSink>(database_->connection());
  }
  std::int64_t counter(const TableDef& table) override {
    return call("SELECT coalesce(pg_sequence_last_value(" + sequenceOf(table) + "::regclass), 0)",
                {});
  }
  void setCounter(const TableDef& table, std::int64_t key) override {
    call("SELECT setval(" + sequenceOf(table) + ", $1)", {key});
  }
  void finish() override { finishPostgres(*database_); }

 private:
  std::int64_t call(const std::string& sql, const std::vector<Value>& parameters) {
    return database_->connection().execute(sql, parameters).front()[0].as<std::int64_t>();
  }

  std::unique_ptr<PostgresDatabase> database_;
};

std::unique_ptr<CopyPlace> openUnfinished(const std::string& place, bool anew) {
  if (isFile(place)) return std::make_unique<SqlitePlace>(continueSqlite(place, anew), false);
  return std::make_unique<PostgresPlace>(anew ? createPostgres(place) : continuePostgres(place),
                                         false);
}

std::unique_ptr<CopyPlace> openFinished(const std::string& place, OpenMode mode) {
  if (isFile(place)) return std::make_unique<SqlitePlace>(openSqlite(place, mode), true);
  return std::make_unique<PostgresPlace>(openPostgres(place), true);
}

}  // namespace

std::unique_ptr<CopyPlace> openCopySource(const std::string& place) {
  return openFinished(place, OpenMode::readOnly);
}

// A finished file is opened for writing so that what is left of its log goes into it.
std::unique_ptr<CopyPlace> openCopyTarget(const std::string& place, bool anew) {
  try {
    return openUnfinished(place, anew);
  } catch (const DatabaseError& error) {
    if (anew || error.number() != database_error::alreadyExists) throw;
    return openFinished(place, OpenMode::readWrite);
  }
}

}  // namespace autonotify::host
