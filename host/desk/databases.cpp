#include "host/desk/databases.h"

#include "host/database/postgres/PostgresDatabase.h"
#include "host/database/sqlite/SqliteDatabase.h"

namespace autonotify::host {

std::unique_ptr<RecordsetDatabase> openDatabase(const std::string& place) {
  if (isFile(place)) return openSqlite(place);
  return openPostgres(place);
}

std::string fileOf(RecordsetDatabase& database) {
  auto* file = dynamic_cast<SqliteDatabase*>(&database);
  return file ? file->path() : std::string();
}

bool isFile(const std::string& place) {
  return !ServerAddress::isUrl(place);
}

std::string placeShown(const std::string& place) {
  return ServerAddress::shown(place);
}

}  // namespace autonotify::host
