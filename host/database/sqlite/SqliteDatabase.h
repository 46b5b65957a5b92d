#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include <SQLiteCpp/Database.h>

#include "host/database/RecordsetDatabase.h"

namespace autonotify::host {

enum class OpenMode { readWrite, readOnly };

/// A firm's database in one SQLite file, which several programs on one machine may share.
///
/// Files use write-ahead logging: readers never wait for a writer. Each write waits for the disk
/// (synchronous=FULL), so that an updateFieldValue that returned survives a power failure; only the
/// reservation of a key is not waited for. A writer waits up to `busyTimeout` for another one and
/// then fails with `locked`, which may be retried.
class SqliteDatabase : public RecordsetDatabase {
 public:
  static constexpr int busyTimeout = 5000;  // milliseconds

  explicit SqliteDatabase(SQLite::Database connection);

  /// The connection itself, for seeding in bulk. No recordset may be in use meanwhile.
  /// Throws DatabaseError (closed).
  SQLite::Database& connection();

  /// The file as the engine names it, by which its locks stand: whole, and without links.
  std::string path();

  /// Moves all that was written from the log into the file, which is then whole by itself. Closing
  /// does so too, but says nothing when the disk is full. Throws DatabaseError.
  void emptyLog();
};

// All throw DatabaseError: missing, cannotOpen (a folder, no permission, a second name), locked,
// readOnly (opened for writing but cannot be), corrupt (damaged or no database), foreign (of
// another program), newerSchema, unfinished. Those that create: alreadyExists, and nothing is left
// behind on failure.

std::unique_ptr<SqliteDatabase> openSqlite(const std::filesystem::path& path,
                                           OpenMode mode = OpenMode::readWrite,
                                           int busyTimeout = SqliteDatabase::busyTimeout);

/// A new file with all tables and no rows, open for writing.
std::unique_ptr<SqliteDatabase> createSqlite(const std::filesystem::path& path);
/// The same in memory, gone when closed.
std::unique_ptr<SqliteDatabase> createSqliteInMemory();

// A file whose making may be interrupted: it opens as `unfinished` until it is finished.

/// The unfinished file that is there, with its rows or, `anew`, without; a new one where there is
/// none, or one with nothing in it. alreadyExists for a finished database.
std::unique_ptr<SqliteDatabase> continueSqlite(const std::filesystem::path& path, bool anew);
/// All that was written is in the file, which opens from now on.
void finishSqlite(SqliteDatabase& database);

}  // namespace autonotify::host
