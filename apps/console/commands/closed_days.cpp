#include "commands/closed_days.h"

#include <fmt/format.h>

#include "TextTable.h"
#include "commands/arguments.h"
#include "commands/exchanging.h"
#include "host/desk/day_text.h"
#include "host/desk/work/firm_holidays.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

void describeListing(CLI::App& command, Arguments& arguments) {
  addReader(command, "--year", "YEAR", "only those of this year",
            [&arguments](const std::string& text) {
              arguments.year = readNumber<std::int16_t>("--year", text, 100, 9998);
            });
}

Reply list(host::Desk& desk, const Arguments& arguments) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"DATE", "NAME"});
  const auto unreadable =
      host::listHolidays(desk, arguments.year, [&](DateTime day, const std::string& name) {
        table.add({host::dayText(day), name});
        reply.data.push_back({{"date", dayJson(day)}, {"name", name}});
      });
  if (!showList(reply, table, unreadable)) reply.refuse("no holiday found");
  return reply;
}

void addDay(CLI::App& command, Arguments& arguments) {
  addDate(command, "DATE", "the day", arguments.date)->required();
}

void describeAdding(CLI::App& command, Arguments& arguments) {
  addDay(command, arguments);
  addText(command, "NAME", "TEXT", "what it is called", arguments.name)->required();
}

Reply changed(const Arguments& arguments, const char* word) {
  Reply reply;
  const std::string day = host::dayText(*arguments.date);
  reply.text = fmt::format(
      "{} is {} holiday. Dates that are worked out from now on know it; hvnotify refresh works "
      "out a task's anew.\n",
      day, word);
  reply.data = {{"date", day}};
  return reply;
}

Reply add(host::Desk& desk, const Arguments& arguments) {
  if (!host::addHoliday(desk, *arguments.date, arguments.name))
    throw Refusal(host::dayText(*arguments.date) + " is a holiday already");
  return changed(arguments, "a");
}

Reply remove(host::Desk& desk, const Arguments& arguments) {
  if (!host::removeHoliday(desk, *arguments.date))
    throw Refusal(host::dayText(*arguments.date) + " is no holiday");
  return changed(arguments, "no longer a");
}

void describeImporting(CLI::App& command, Arguments& arguments) {
  command
      .add_option(
          "FILE", arguments.files,
          "calendars (iCalendar), or files of separated values with the columns Date and Name")
      ->type_name("FILE")
      ->required();
  addImportOptions(command, arguments);
}

Reply bringIn(host::Desk& desk, const Arguments& arguments) {
  host::ImportOptions options = arguments.importing;
  options.kind = host::findEntryKind("holidays");
  options.today = desk.today();
  return importInto(desk.database(), arguments.files, options);
}

constexpr CommandAction actions[] = {
    {"list", "list the days on which the firm is closed", describeListing, list},
    {"add", "add one", describeAdding, add},
    {"import", "bring them in from files", describeImporting, bringIn},
    {"remove", "take one out", addDay, remove},
};

}  // namespace

void describeHolidays(CLI::App& command, Arguments& arguments) {
  describeActions(command, actions, arguments);
}

Reply runHolidays(host::Desk& desk, const Arguments& arguments) {
  return arguments.action->run(desk, arguments);
}

}  // namespace autonotify::console
