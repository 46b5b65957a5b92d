#include "commands/clients_and_staff.h"

#include <array>

#include "commands/arguments.h"
#include "host/desk/work/people_list.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

/// Null for none, so that a table shows a dash.
Json idOrNull(Id id) {
  return id < 0 ? Json() : Json(id);
}

void addName(CLI::App& command, Arguments& arguments) {
  addText(command, "NAME", "TEXT", "only those whose name or number holds this", arguments.name);
  addCsv(command, arguments);
}

}  // namespace

void describeClients(CLI::App& command, Arguments& arguments) {
  addName(command, arguments);
}

Reply listAllClients(host::Desk& desk, const Arguments& arguments, RowForm form) {
  RowPrinter printer(form, {{"client", "CLIENT"},
                            {"contact", "CONTACT"},
                            {"company", "COMPANY"},
                            {"number", "NUMBER"},
                            {"name", "NAME"},
                            {"phone", "PHONE"},
                            {"email", "EMAIL"},
                            {"accountant", nullptr}});
  const host::UnreadableRows unreadable =
      host::listClients(desk, arguments.name, [&](const host::ClientLine& line) {
        printer.add(std::array{idOrNull(line.client), idOrNull(line.contact),
                               idOrNull(line.company), textJson(line.number), Json(line.name),
                               textJson(line.phone), textJson(line.email),
                               textJson(line.accountant)});
      });
  return endList(printer, "no client found", unreadable);
}

void describeStaff(CLI::App& command, Arguments& arguments) {
  addName(command, arguments);
}

Reply listAllStaff(host::Desk& desk, const Arguments& arguments, RowForm form) {
  RowPrinter printer(form, {{"user", "USER"},
                            {"name", "NAME"},
                            {"title", "TITLE"},
                            {"phone", "PHONE"},
                            {"email", "EMAIL"},
                            {"level", "LEVEL"}});
  const host::UnreadableRows unreadable =
      host::listStaff(desk, arguments.name, [&](const host::StaffLine& line) {
        printer.add(std::array{Json(line.user), Json(line.name), textJson(line.title),
                               textJson(line.phone), textJson(line.email), idOrNull(line.level)});
      });
  return endList(printer, "no member of staff found", unreadable);
}

}  // namespace autonotify::console
