#include "host/desk/databases.h"

#include <SQLiteCpp/Database.h>
#include <fmt/format.h>
#include <libpq-fe.h>

#include "host/database/postgres/PostgresDatabase.h"
#include "host/database/postgres/PostgresRowSink.h"
#include "host/database/schema/Schema.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/database/sqlite/SqliteRowSink.h"

namespace autonotify::host {

std::unique_ptr<RecordsetDatabase> openDatabase(const std::string& place) {
  if (isFile(place)) return openSqlite(place);
  return openPostgres(place);
}

std::string fileOf(RecordsetDatabase& database) {
  auto* file = dynamic_cast<SqliteDatabase*>(&database);
  return file ? file->path() : std::string();
}

std::unique_ptr<RowSink> sinkInto(RecordsetDatabase& database) {
  if (auto* file = dynamic_cast<SqliteDatabase*>(&database))
    return std::make_unique<SqliteRowSink>(file->connection());
  return std::make_unique<PostgresRowSink>(dynamic_cast<PostgresDatabase&>(database).connection(),
                                           KeySource::reserved);
}

std::string databaseVersions() {
  const int client = PQlibVersion();
  return fmt::format("schema {}, SQLite {}, PostgreSQL client {}.{}", schemaVersion,
                     SQLite::getLibVersion(), client / 10000, client % 10000);
}

bool isFile(const std::string& place) {
  return !ServerAddress::isUrl(place);
}

std::string placeShown(const std::string& place) {
  return ServerAddress::shown(place);
}

}  // namespace autonotify::host
