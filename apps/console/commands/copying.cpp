#include "commands/copying.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "ProgressLine.h"
#include "commands/arguments.h"
#include "host/copy/DatabaseCopy.h"
#include "host/database/postgres/PostgresDatabase.h"
#include "host/database/postgres/desk_role.h"
#include "host/desk/databases.h"

namespace autonotify::console {
namespace {

const char* adviceOn(const host::DatabaseError& error) {
  if (error.number() == host::database_error::alreadyExists)
    return " and stays as it is; the copy goes to a new place";
  return dynamic_cast<const host::SpoiltCopy*>(&error) ? " (--anew)" : "";
}

/// The words of a failure name the end at which it came.
template <class Open>
auto opened(const std::string& place, Open open) {
  try {
    return open();
  } catch (const host::DatabaseError& error) {
    throw databaseRefusal(place, error, adviceOn(error));
  }
}

std::string copiedText(const std::string& target, bool wasFinished,
                       const host::CopyResult& result) {
  if (wasFinished)
    return fmt::format("{} was finished before: {} rows of {} tables, all equal.\n", target,
                       result.rows, result.tables);
  return fmt::format(
      "Copied {} rows of {} tables to {}{}; all are equal.\n", result.rows, result.tables, target,
      result.foundThere > 0 ? fmt::format(", where {} rows were already", result.foundThere) : "");
}

}  // namespace

void describeCopy(CLI::App& command, Arguments& arguments) {
  addText(command, "--from", "PLACE", "the database to copy (default: that of --database)",
          arguments.from);
  addText(command, "--to", "PLACE", "where the copy goes: a new file, or an empty schema",
          arguments.to)
      ->required();
  command.add_flag("--anew", arguments.anew, "begin an interrupted copy from its start");
}

Reply runCopy(const GlobalOptions& options, const Arguments& arguments) {
  const std::string& source = arguments.from.empty() ? options.database : arguments.from;
  const auto from = opened(source, [&] { return host::openCopySource(source); });
  const auto to =
      opened(arguments.to, [&] { return host::openCopyTarget(arguments.to, arguments.anew); });
  const host::CopyResult result = opened(arguments.to, [&] {
    ProgressLine line;
    return host::copyDatabase(*from, *to,
                              [&](const char* step, const std::string& table, std::int64_t rows) {
                                line.show(fmt::format("{} {}: {} rows", step, table, rows));
                              });
  });
  Reply reply;
  const std::string target = host::placeShown(arguments.to);
  reply.text = copiedText(target, to->isFinished(), result);
  reply.data = {{"database", target},
                {"rows", result.rows},
                {"tables", result.tables},
                {"foundThere", result.foundThere}};
  return reply;
}

void describeRole(CLI::App& command, Arguments& arguments) {
  addText(command, "NAME", "TEXT", "the role, such as desk", arguments.role)->required();
}

Reply runRole(const GlobalOptions& options, const Arguments& arguments) {
  const std::string& place = options.database;
  if (host::isFile(place))
    throw Refusal("roles are for servers; " + place +
                  " is a file, which its folder's rights protect");
  Reply reply;
  try {
    const auto database = host::openPostgres(place);
    const std::string sql = host::deskRoleStatements(database->connection(), arguments.role);
    reply.document = "\\set ON_ERROR_STOP on\n" + sql;
    reply.data = {{"role", arguments.role}, {"statements", sql}};
  } catch (const host::DatabaseError& error) {
    throw databaseRefusal(place, error);
  }
  return reply;
}

}  // namespace autonotify::console
