#include "host/database/sqlite/SqliteDatabase.h"

#include <SQLiteCpp/Exception.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <string>
#include <system_error>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/schema/Schema.h"
#include "host/database/sqlite/SqliteDriver.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

namespace files = std::filesystem;

// A connection is used on one thread.
constexpr int toRead = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX;
constexpr int toWrite = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
constexpr int toCreate = toWrite | SQLITE_OPEN_CREATE;

void execute(SQLite::Database& database, const std::string& sql) {
  translated([&] { return database.exec(sql); });
}

int pragma(SQLite::Database& database, const char* name) {
  const std::string sql = std::string("PRAGMA ") + name;
  return translated([&] { return database.execAndGet(sql).getInt(); });
}

/// The engine may take a name such as "file:x" or ":memory:" for an address, but never a path.
SQLite::Database connect(const files::path& path, int flags, int busyTimeout) {
  const std::string name = (path.is_absolute() ? path : "." / path).string();
  return translated([&] { return SQLite::Database(name, flags, busyTimeout); });
}

void requireNoFolder(const files::path& path) {
  std::error_code ignored;
  if (files::is_directory(path, ignored))
    throw DatabaseError(database_error::cannotOpen,
                        Words::tr("%1 is a folder, not a database file", {path.string()}));
}

void requireFile(const files::path& path) {
  std::error_code ignored;
  if (!files::exists(path, ignored))
    throw DatabaseError(database_error::missing,
                        Words::tr("There is no database %1", {path.string()}));
  requireNoFolder(path);
}

/// The log and its locks lie beside the file, by name: two names of one file would have two of
/// them, and no one who uses the one would see what was written by the other. Links that lead to a
/// name do no harm.
void requireOneName(const std::string& path) {
  struct statx status {};
  if (::statx(AT_FDCWD, path.c_str(), 0, STATX_NLINK, &status) != 0) return;
  if (status.stx_nlink > 1)
    throw DatabaseError(
        database_error::cannotOpen,
        Words::tr("%1 has more than one name (hard links), under which changes would be lost; "
                  "remove all but one",
                  {path}));
  if (status.stx_attributes & STATX_ATTR_MOUNT_ROOT)
    throw DatabaseError(
        database_error::cannotOpen,
        Words::tr("%1 is mounted as a single file, without the log beside it; mount its folder",
                  {path}));
}

void requireOurs(SQLite::Database& database, const std::string& path, int wanted) {
  const int id = pragma(database, "application_id");
  if (id != applicationId && id != unfinishedApplicationId)
    throw DatabaseError(database_error::foreign,
                        Words::tr("%1 is not a database of this program", {path}));
  if (id == unfinishedApplicationId && id != wanted)
    throw DatabaseError(database_error::unfinished, unfinishedText(path));
  if (id != wanted)
    throw DatabaseError(database_error::alreadyExists,
                        Words::tr("%1 is a finished database", {path}));
  const int version = pragma(database, "user_version");
  if (version > schemaVersion)
    throw DatabaseError(database_error::newerSchema, newerSchemaText(path, version));
}

void requireWritable(SQLite::Database& database, const std::string& path) {
  if (sqlite3_db_readonly(database.getHandle(), "main") == 1)
    throw DatabaseError(database_error::readOnly, Words::tr("%1 can only be read", {path}));
}

/// All tables without rows, in place of those that are there.
void createTables(SQLite::Database& database, int id = applicationId) {
  execute(database, "BEGIN IMMEDIATE");
  for (const TableDef& table : schemaTables())
    execute(database, "DROP TABLE IF EXISTS " + table.name);
  for (const std::string& statement : schemaStatements(Engine::sqlite))
    execute(database, statement);
  execute(database, "PRAGMA application_id=" + std::to_string(id));
  execute(database, "PRAGMA user_version=" + std::to_string(schemaVersion));
  execute(database, "COMMIT");
}

void useLog(SQLite::Database& database) {
  execute(database, "PRAGMA journal_mode=WAL");
  execute(database, "PRAGMA synchronous=FULL");
}

/// The empty database as a block of memory, from which each new one in memory is copied.
class EmptyImage {
 public:
  EmptyImage() {
    SQLite::Database database(":memory:", toCreate);
    createTables(database);
    bytes_ = sqlite3_serialize(database.getHandle(), "main", &size_, 0);
    if (!bytes_) throw std::bad_alloc();
  }
  ~EmptyImage() { sqlite3_free(bytes_); }
  EmptyImage(const EmptyImage&) = delete;
  EmptyImage& operator=(const EmptyImage&) = delete;

  void copyTo(sqlite3* connection) const {
    const auto size = static_cast<sqlite3_uint64>(size_);
    auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(size));
    if (!copy) throw std::bad_alloc();
    std::copy(bytes_, bytes_ + size_, copy);
    const int code =
        sqlite3_deserialize(connection, "main", copy, size_, size_,
                            SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE);
    if (code != SQLITE_OK) throwSqliteError(connection, code, {});
  }

 private:
  unsigned char* bytes_ = nullptr;
  sqlite3_int64 size_ = 0;
};

}  // namespace

SqliteDatabase::SqliteDatabase(SQLite::Database connection)
    : RecordsetDatabase(std::make_unique<SqliteDriver>(std::move(connection))) {}

SQLite::Database& SqliteDatabase::connection() {
  return static_cast<SqliteDriver&>(driver()).database();
}

std::string SqliteDatabase::path() {
  return sqlite3_db_filename(connection().getHandle(), "main");
}

void SqliteDatabase::emptyLog() {
  if (pragma(connection(), "wal_checkpoint(TRUNCATE)") != 0)
    throw DatabaseError(database_error::locked,
                        Words::tr("The database is locked by another user"));
}

std::unique_ptr<SqliteDatabase> openSqlite(const files::path& path, OpenMode mode,
                                           int busyTimeout) {
  const std::string name = path.string();
  requireFile(path);
  requireOneName(name);
  const bool writing = mode == OpenMode::readWrite;
  SQLite::Database database = connect(path, writing ? toWrite : toRead, busyTimeout);
  requireOurs(database, name, applicationId);
  if (writing) {
    requireWritable(database, name);
    useLog(database);
  }
  return std::make_unique<SqliteDatabase>(std::move(database));
}

std::unique_ptr<SqliteDatabase> createSqlite(const files::path& path) {
  if (files::exists(path))
    throw DatabaseError(database_error::alreadyExists,
                        Words::tr("%1 is there already", {path.string()}));
  SQLite::Database database = connect(path, toCreate, SqliteDatabase::busyTimeout);
  try {
    createTables(database);
    useLog(database);
  } catch (...) {
    std::error_code ignored;
    files::remove(path, ignored);
    throw;
  }
  return std::make_unique<SqliteDatabase>(std::move(database));
}

std::unique_ptr<SqliteDatabase> createSqliteInMemory() {
  static const EmptyImage image;
  SQLite::Database database(":memory:", toCreate);
  image.copyTo(database.getHandle());
  return std::make_unique<SqliteDatabase>(std::move(database));
}

std::unique_ptr<SqliteDatabase> continueSqlite(const files::path& path, bool anew) {
  requireNoFolder(path);
  const std::string name = path.string();
  SQLite::Database database = connect(path, toCreate, SqliteDatabase::busyTimeout);
  if (pragma(database, "page_count") > 0) requireOurs(database, name, unfinishedApplicationId);
  requireWritable(database, name);
  if (anew || pragma(database, "user_version") != schemaVersion)
    createTables(database, unfinishedApplicationId);
  useLog(database);
  return std::make_unique<SqliteDatabase>(std::move(database));
}

void finishSqlite(SqliteDatabase& database) {
  database.emptyLog();
  execute(database.connection(), "PRAGMA application_id=" + std::to_string(applicationId));
  database.emptyLog();
}

}  // namespace autonotify::host
