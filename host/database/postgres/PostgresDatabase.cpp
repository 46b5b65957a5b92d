#include "host/database/postgres/PostgresDatabase.h"

#include <optional>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/schema/Schema.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

/// What a schema holds.
struct Content {
  std::string schema;
  bool isEmpty = true;
  /// Of this program's databases only.
  std::optional<int> version;
  bool isComplete = false;
};

const std::string markTable = "autonotify_version";

// The table may belong to another program: its columns are asked for only when they are there.
Content contentOf(PostgresConnection& connection) {
  const pqxx::result answer = connection.execute(
      "SELECT current_schema(), count(c.oid), count(c.oid) FILTER (WHERE c.relname = '" +
      markTable +
      "') FROM (SELECT "
      "current_schema()::regnamespace AS here) AS n LEFT JOIN pg_class c ON c.relnamespace = "
      "n.here AND c.relkind IN ('r', 'p', 'v', 'm', 'f')");
  const pqxx::row row = answer.front();
  if (row[0].is_null())
    throw DatabaseError(database_error::foreign,
                        Words::tr("The schemas that the address names are not there"));
  Content content{row[0].as<std::string>(), row[1].as<int>() == 0, {}, false};
  if (row[2].as<int>() == 0) return content;
  const pqxx::result mark =
      connection.execute("SELECT application, schema_version, complete FROM " + markTable);
  if (mark.empty() || mark.front()[0].as<int>() != applicationId) return content;
  content.version = mark.front()[1].as<int>();
  content.isComplete = mark.front()[2].as<bool>();
  return content;
}

void requireOurs(const Content& content) {
  const std::string schema = Words::tr("The schema \"%1\"", {content.schema});
  if (!content.version)
    throw DatabaseError(database_error::foreign,
                        content.isEmpty
                            ? Words::tr("%1 holds no database", {schema})
                            : Words::tr("%1 is not a database of this program", {schema}));
  if (*content.version > schemaVersion)
    throw DatabaseError(database_error::newerSchema, newerSchemaText(schema, *content.version));
  if (!content.isComplete) throw DatabaseError(database_error::unfinished, unfinishedText(schema));
}

void requireRoom(const Content& content) {
  if (content.version && content.isComplete)
    throw DatabaseError(database_error::alreadyExists,
                        "The schema \"" + content.schema + "\" holds a database already");
  if (!content.version && !content.isEmpty)
    throw DatabaseError(database_error::foreign,
                        "The schema \"" + content.schema + "\" holds tables of another program");
}

void createTables(PostgresConnection& connection, const Content& content) {
  const auto scope = connection.beginWriting();
  if (content.version) {
    connection.execute("DROP TABLE IF EXISTS " + markTable);
    for (const TableDef& table : schemaTables())
      connection.execute("DROP TABLE IF EXISTS " + table.name);
  }
  for (const std::string& statement : schemaStatements(Engine::postgres))
    connection.execute(statement);
  connection.execute("CREATE TABLE " + markTable +
                     " (application INTEGER PRIMARY KEY, schema_version INTEGER NOT NULL, "
                     "complete BOOLEAN NOT NULL)");
  connection.execute("INSERT INTO " + markTable + " VALUES ($1, $2, FALSE)",
                     {applicationId, schemaVersion});
  connection.commit(*scope);
}

// The server may still be at the last statement of a program that was killed. The lock ends with
// the connection.
void takeTurn(PostgresConnection& connection) try {
  connection.execute(
      "SELECT pg_advisory_lock(hashtext('autonotify fill ' || current_schema()), 0)");
} catch (const DatabaseError& error) {
  if (error.number() != database_error::locked) throw;
  throw DatabaseError(database_error::locked, "Another program is filling the schema");
}

std::unique_ptr<PostgresDatabase> unfinished(const std::string& url, bool anew) {
  auto driver = std::make_unique<PostgresDriver>(ServerAddress(url));
  takeTurn(driver->connection());
  const Content content = contentOf(driver->connection());
  requireRoom(content);
  if (anew || content.version != schemaVersion) createTables(driver->connection(), content);
  return std::make_unique<PostgresDatabase>(std::move(driver));
}

}  // namespace

PostgresConnection& PostgresDatabase::connection() {
  return static_cast<PostgresDriver&>(driver()).connection();
}

std::unique_ptr<PostgresDatabase> openPostgres(const std::string& url) {
  auto driver = std::make_unique<PostgresDriver>(ServerAddress(url));
  requireOurs(contentOf(driver->connection()));
  return std::make_unique<PostgresDatabase>(std::move(driver));
}

std::unique_ptr<PostgresDatabase> createPostgres(const std::string& url) {
  return unfinished(url, true);
}

std::unique_ptr<PostgresDatabase> continuePostgres(const std::string& url) {
  return unfinished(url, false);
}

void finishPostgres(PostgresDatabase& database) {
  database.connection().execute("UPDATE " + markTable + " SET complete = TRUE");
}

}  // namespace autonotify::host
