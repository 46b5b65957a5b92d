#include "host/desk/found_database.h"

#include <filesystem>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/postgres/PostgresDatabase.h"
#include "host/database/postgres/PostgresRowSink.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/desk/database_draft.h"
#include "host/desk/databases.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

using Fill = std::function<void(RowSink& sink)>;

void fillAll(RowSink&& sink, const Fill& fill) {
  fill(sink);
  sink.insert("DatabaseIdentity", {{"UniqueText", newIdentity()}});
}

void foundFile(const fs::path& target, const Fill& fill) {
  DraftFolder folder(target);
  if (fs::exists(fs::symlink_status(target)))
    throw DatabaseError(database_error::alreadyExists,
                        target.string() + " exists already and stays as it is");
  const Draft draft(folder, target);
  const auto database = createSqlite(draft.path());
  fillAll(SqliteRowSink(database->connection()), fill);
  database->emptyLog();
  database->close();
  draft.finish();
}

void foundOnServer(const std::string& url, const Fill& fill) {
  const auto database = createPostgres(url);
  fillAll(PostgresRowSink(database->connection()), fill);
  finishPostgres(*database);
}

}  // namespace

void foundDatabase(const std::string& place, const Fill& fill) {
  isFile(place) ? foundFile(place, fill) : foundOnServer(place, fill);
}

}  // namespace autonotify::host
