#include "commands/notifications.h"

#include <fmt/format.h>

#include <vector>

#include "commands/arguments.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/notification_list.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

using host::NotificationLine;
using host::NotificationQuery;

struct LineColumn {
  RowColumn column;
  Json (*value)(const NotificationLine& line);
};
using LineColumns = std::vector<LineColumn>;

namespace line_columns {

const LineColumn number{{"notification", "NOTIFICATION"},
                        [](const NotificationLine& line) { return Json(line.row.id); }};
const LineColumn date{{"date", "DATE"},
                      [](const NotificationLine& line) { return dayJson(line.row.date); }};
const LineColumn channel{{"channel", "CHANNEL"}, [](const NotificationLine& line) {
                           return Json(host::channelName(line.row.channel));
                         }};
const LineColumn state{{"state", "STATE"},
                       [](const NotificationLine& line) { return Json(stateText(line.row)); }};
const LineColumn client{{"client", "CLIENT"},
                        [](const NotificationLine& line) { return Json(line.client); }};
const LineColumn company{{"companyId", nullptr},
                         [](const NotificationLine& line) { return Json(line.row.companyId); }};
const LineColumn contact{{"contactId", nullptr},
                         [](const NotificationLine& line) { return Json(line.row.contactId); }};
const LineColumn task{{"task", nullptr},
                      [](const NotificationLine& line) { return Json(line.row.scheduleId); }};
const LineColumn name{{"name", "TASK"},
                      [](const NotificationLine& line) { return Json(line.item); }};
const LineColumn address{{"address", "ADDRESS"}, [](const NotificationLine& line) {
                           return textJson(addressOf(line.row));
                         }};
const LineColumn sentTime{{"sentTime", "SENT"}, [](const NotificationLine& line) {
                            return momentJson(line.row.sentTime);
                          }};
const LineColumn sentBy{{"sentBy", "SENT-BY"},
                        [](const NotificationLine& line) { return textJson(line.sentBy); }};
const LineColumn assigned{{"assigned", "ASSIGNED"},
                          [](const NotificationLine& line) { return textJson(line.assigned); }};

}  // namespace line_columns

struct PrintedLines {
  Reply reply;
  bool isEmpty = false;
};

/// Prints the lines; what of them could not be read is named on standard error.
PrintedLines printLines(host::Desk& desk, const NotificationQuery& query,
                        const LineColumns& columns, RowForm form) {
  std::vector<RowColumn> headings;
  for (const LineColumn& each : columns) headings.push_back(each.column);
  RowPrinter printer(form, std::move(headings));
  std::vector<Json> values(columns.size());
  const auto unreadable = listNotifications(desk, query, [&](const NotificationLine& line) {
    for (std::size_t i = 0; i < columns.size(); ++i) values[i] = columns[i].value(line);
    printer.add(values);
  });
  PrintedLines printed;
  printed.isEmpty = !printer.end() && unreadable.empty();
  printed.reply.isDataPrinted = true;
  for (const host::UnreadableRow& row : unreadable) printed.reply.refuse(row.description());
  return printed;
}

/// Where there is nothing, `none` says so.
Reply printSome(host::Desk& desk, const NotificationQuery& query, const LineColumns& columns,
                RowForm form, const char* none) {
  PrintedLines printed = printLines(desk, query, columns, form);
  if (printed.isEmpty) printed.reply.refuse(none);
  return std::move(printed.reply);
}

void requireInOrder(const Arguments& arguments) {
  if (!arguments.since || !arguments.until || *arguments.since <= *arguments.until) return;
  throw Refusal(fmt::format("--from {} is after --until {} (see: hvnotify notifications --help)",
                            host::dayText(*arguments.since), host::dayText(*arguments.until)),
                exitUsage);
}

}  // namespace

void describeDue(CLI::App& command, Arguments& arguments) {
  addDate(command, "--until", "what is to be sent on this date or before (default: today)",
          arguments.until);
  addCsv(command, arguments);
}

Reply listDue(host::Desk& desk, const Arguments& arguments, RowForm form) {
  const NotificationQuery query{.standing = &host::notificationStanding("due"),
                                .until = arguments.until};
  using namespace line_columns;
  PrintedLines printed = printLines(desk, query, {number, date, channel, client, task, name}, form);
  if (printed.isEmpty && form == RowForm::table) printed.reply.text = "Nothing is due.\n";
  warnOfHolidays(desk, desk.today(), arguments.until.value_or(desk.today()), printed.reply);
  return std::move(printed.reply);
}

void describeNotifications(CLI::App& command, Arguments& arguments) {
  addChoice(command, "--state", "STATE", host::notificationStandings(), " (default: all)",
            [&arguments](const host::NotificationStanding& row) { arguments.standing = &row; });
  addAnyChannels(command, arguments);
  addClientNumber(command, "--client", arguments);
  command.get_option("--contact")->excludes("--client");
  addText(command, "--assigned", "NAME", "whose task or item of the diary it is about",
          arguments.assigned);
  addDate(command, "--from", "only those dated on this date or after", arguments.since);
  addDate(command, "--until", "only those dated on this date or before", arguments.until);
  addChoice(command, "--sort", "COLUMN", host::notificationOrders(), " (default: date)",
            [&arguments](const host::NotificationOrder& row) { arguments.order = &row; });
  command.add_flag("--descending", arguments.descending, "the last one first");
  addReader(command, "--limit", "NUMBER", "no more than so many",
            [&arguments](const std::string& text) {
              arguments.limit = readNumber<int>("--limit", text, 1);
            });
  addCsv(command, arguments);
}

Reply listAllNotifications(host::Desk& desk, const Arguments& arguments, RowForm form) {
  requireInOrder(arguments);
  NotificationQuery query{.standing = arguments.standing,
                          .channels = arguments.channels,
                          .client = clientOf(desk, arguments),
                          .assigned = arguments.assigned,
                          .from = arguments.since,
                          .until = arguments.until,
                          .order = arguments.order,
                          .descending = arguments.descending};
  if (arguments.limit) query.limit = static_cast<std::size_t>(*arguments.limit);
  using namespace line_columns;
  return printSome(desk, query,
                   {number, date, channel, state, client, company, contact, task, name, address,
                    sentTime, sentBy, assigned},
                   form, "no notification found");
}

void describeHistory(CLI::App& command, Arguments& arguments) {
  addClientNumber(command, "CLIENT", arguments);
  addCsv(command, arguments);
}

Reply listHistory(host::Desk& desk, const Arguments& arguments, RowForm form) {
  const NotificationQuery query{.standing = &host::notificationStanding("sent"),
                                .client = requireClientOf(desk, arguments, "history"),
                                .order = &host::notificationOrder("sent"),
                                .descending = true};
  using namespace line_columns;
  return printSome(desk, query, {number, sentTime, channel, state, task, name, address, sentBy},
                   form, "nothing was sent to this client");
}

}  // namespace autonotify::console
