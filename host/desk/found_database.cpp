#include "host/desk/found_database.h"

#include <fmt/format.h>

#include <filesystem>
#include <random>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/postgres/PostgresDatabase.h"
#include "host/database/postgres/PostgresRowSink.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/database/sqlite/SqliteRowSink.h"
#include "host/desk/databases.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

std::string newIdentity() {
  std::random_device device;
  return fmt::format("{:08x}{:08x}{:08x}{:08x}", device(), device(), device(), device());
}

/// A file beside the wanted one, until everything is in it.
class Draft {
 public:
  explicit Draft(const fs::path& target)
      : target_(target), path_(fmt::format("{}.{}.new", target.string(), newIdentity())) {}
  ~Draft() { remove(); }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  const fs::path& path() const { return path_; }
  /// Gives the file its name, which must still be free.
  void finish() const {
    std::error_code error;
    fs::create_hard_link(path_, target_, error);
    if (error)
      throw DatabaseError(database_error::inputOutput,
                          fmt::format("cannot make {}: {}", target_.string(), error.message()));
  }

 private:
  void remove() const {
    std::error_code ignored;
    for (const char* ending : {"", "-wal", "-shm"}) fs::remove(path_.string() + ending, ignored);
  }

  fs::path target_;
  fs::path path_;
};

using Fill = std::function<void(RowSink& sink)>;

void fillAll(RowSink&& sink, const Fill& fill) {
  fill(sink);
  sink.insert("DatabaseIdentity", {{"UniqueText", newIdentity()}});
}

void foundFile(const fs::path& target, const Fill& fill) {
  if (fs::exists(fs::symlink_status(target)))
    throw DatabaseError(database_error::alreadyExists,
                        target.string() + " exists already and stays as it is");
  const Draft draft(target);
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
