#include "host/database/postgres/desk_role.h"

#include <algorithm>
#include <string_view>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/postgres/PostgresDriver.h"
#include "host/database/schema/Schema.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

struct TableRights {
  const char* table;
  const char* rights;
  bool addsRows;
};

constexpr TableRights rightsOfADesk[] = {
    {"ClientNotification", "INSERT, UPDATE, DELETE", true},
    {"ClientScheduleAutoNotifications", "INSERT, UPDATE", true},
    {"ScheduleTypes", "INSERT, UPDATE", true},
    {"UserGeneralSettings", "INSERT, UPDATE", true},
    {"UserGridSettings2", "INSERT, UPDATE", true},
    {"Schedule", "UPDATE (notifyType, ScheduleModifiedStamp)", false},
    {"ContactLinks", "UPDATE (DefaultContact)", false},
    {"Companies",
     "UPDATE (DefaultContactName, DefaultContactPhoneNumber, DefaultContactFaxNumber, "
     "DefaultContactEmail, PortalChangedFlag)",
     false},
    {"CompaniesNotes", "UPDATE (ContactNotes)", false},
};

// A right that is granted to one of these goes to everyone, to whoever grants it, or to no role.
constexpr std::string_view reservedNames[] = {"public",       "none",         "user",
                                              "current_role", "current_user", "session_user"};

bool isReserved(const std::string& role) {
  const std::string name = lowerCase(role);
  return name.starts_with("pg_") ||
         std::ranges::find(reservedNames, name) != std::end(reservedNames);
}

std::string ask(PostgresConnection& connection, const std::string& sql,
                const std::vector<Value>& parameters) {
  return connection.execute(sql, parameters).front()[0].as<std::string>();
}

void requireNew(PostgresConnection& connection, const std::string& role) {
  if (isReserved(role))
    throw DatabaseError(database_error::alreadyExists,
                        "The server keeps the name \"" + role + "\" to itself; choose another");
  if (ask(connection, "SELECT count(*) FROM pg_roles WHERE rolname = $1::name", {role}) != "0")
    throw DatabaseError(database_error::alreadyExists,
                        "The server has a role \"" + role + "\" already; choose another name");
}

}  // namespace

std::string deskRoleStatements(PostgresConnection& connection, const std::string& role) {
  requireNew(connection, role);
  const std::string name = ask(connection, "SELECT quote_ident($1)", {role});
  const std::string schema = ask(connection, "SELECT quote_ident(current_schema())", {});
  const std::string to = " TO " + name + ";\n";
  std::string sql = "BEGIN;\nCREATE ROLE " + name + " LOGIN;\n";
  sql += "GRANT USAGE ON SCHEMA " + schema + to;
  sql += "GRANT SELECT ON ALL TABLES IN SCHEMA " + schema + to;
  for (const TableRights& each : rightsOfADesk) {
    sql.append("GRANT ").append(each.rights).append(" ON ");
    sql.append(schema).append(".").append(each.table).append(to);
    if (!each.addsRows) continue;
    sql += "GRANT USAGE ON SEQUENCE " +
           ask(connection, "SELECT " + sequenceOf(*findTable(each.table)), {}) + to;
  }
  return sql + "COMMIT;\n";
}

}  // namespace autonotify::host
