#pragma once

#include <memory>
#include <string>

#include "host/database/RecordsetDatabase.h"
#include "host/database/postgres/PostgresDriver.h"

namespace autonotify::host {

/// A firm's database on a PostgreSQL server, which any number of desks share.
///
/// Each write is its own transaction, durable when it returns. A connection that is lost shows as
/// `connectionLost` in the call that meets it; the next call connects anew. A write that met the
/// loss may or may not have been stored, and is never repeated here: to try it again does no harm,
/// since a row's key is reserved before the row is added.
class PostgresDatabase : public RecordsetDatabase {
 public:
  explicit PostgresDatabase(std::unique_ptr<PostgresDriver> driver)
      : RecordsetDatabase(std::move(driver)) {}

  /// The connection itself, for seeding in bulk. No recordset may be in use meanwhile.
  /// Throws DatabaseError (closed).
  PostgresConnection& connection();
};

// A database is unfinished from its making until it is said to be complete. Both throw
// DatabaseError: cannotOpen (no server, no such database, wrong user), foreign (the schema is of
// another program or empty), newerSchema, unfinished, notPermitted.

std::unique_ptr<PostgresDatabase> openPostgres(const std::string& url);

/// All tables, without rows, in the first schema of the search path, where an unfinished database
/// makes room. alreadyExists when a finished one is there; foreign when the schema holds anything
/// else; on failure nothing has changed.
std::unique_ptr<PostgresDatabase> createPostgres(const std::string& url);

/// The unfinished database that is there, as it is; a new one where there is none. Throws as
/// createPostgres does.
std::unique_ptr<PostgresDatabase> continuePostgres(const std::string& url);

/// The database holds what it was made for, and opens from now on.
void finishPostgres(PostgresDatabase& database);

}  // namespace autonotify::host
