#include "host/copy/CopyPlace.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <filesystem>
#include <system_error>

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
  explicit SqlitePlace(std::unique_ptr<SqliteDatabase> database) : database_(std::move(database)) {}

  RecordsetDatabase& database() override { return *database_; }
  std::unique_ptr<RowSink> newSink() override {
    return std::make_unique<SqliteRowSink>(database_->connection());
  }
  Id lastKey(const TableDef& table) override {
    return translated([&] {
      SQLite::Statement ask(database_->connection(),
                            "SELECT coalesce(max(seq), 0) FROM sqlite_sequence WHERE name=?");
      ask.bind(1, table.name);
      ask.executeStep();
      return Id{ask.getColumn(0).getInt()};
    });
  }
  void setLastKey(const TableDef& table, Id key) override {
    const std::string sql = "DELETE FROM sqlite_sequence WHERE name='" + table.name +
                            "'; INSERT INTO sqlite_sequence(name, seq) VALUES ('" + table.name +
                            "', " + std::to_string(key) + ")";
    translated([&] { return database_->connection().exec(sql); });
  }
  void finish() override { finishSqlite(*database_); }

 private:
  std::unique_ptr<SqliteDatabase> database_;
};

class PostgresPlace : public CopyPlace {
 public:
  explicit PostgresPlace(std::unique_ptr<PostgresDatabase> database)
      : database_(std::move(database)) {}

  RecordsetDatabase& database() override { return *database_; }
  std::unique_ptr<RowSink> newSink() override {
    return std::make_unique<PostgresRowSink>(database_->connection());
  }
  Id lastKey(const TableDef& table) override {
    return call("SELECT coalesce(pg_sequence_last_value(" + sequenceOf(table) + "::regclass), 0)",
                {});
  }
  void setLastKey(const TableDef& table, Id key) override {
    call("SELECT setval(" + sequenceOf(table) + ", $1)", {key});
  }
  void finish() override { finishPostgres(*database_); }

 private:
  Id call(const std::string& sql, const std::vector<Value>& parameters) {
    return database_->connection().execute(sql, parameters).front()[0].as<Id>();
  }

  std::unique_ptr<PostgresDatabase> database_;
};

void removeFile(const std::string& path) {
  std::error_code fault;
  for (const char* ending : {"", "-wal", "-shm"}) {
    if (!fault) std::filesystem::remove(path + ending, fault);
  }
  if (fault)
    throw DatabaseError(database_error::inputOutput,
                        path + " cannot be made anew: " + fault.message());
}

std::unique_ptr<SqliteDatabase> openTargetFile(const std::string& path, bool anew) {
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) return createUnfinishedSqlite(path);
  auto database = openUnfinishedSqlite(path);
  if (!anew) return database;
  database.reset();
  removeFile(path);
  return createUnfinishedSqlite(path);
}

}  // namespace

std::unique_ptr<CopyPlace> openCopySource(const std::string& place) {
  if (isFile(place)) return std::make_unique<SqlitePlace>(openSqlite(place, OpenMode::readOnly));
  return std::make_unique<PostgresPlace>(openPostgres(place));
}

std::unique_ptr<CopyPlace> openCopyTarget(const std::string& place, bool anew) {
  if (isFile(place)) return std::make_unique<SqlitePlace>(openTargetFile(place, anew));
  return std::make_unique<PostgresPlace>(anew ? createPostgres(place) : continuePostgres(place));
}

}  // namespace autonotify::host
