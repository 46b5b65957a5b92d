#include "commands/items.h"

#include <array>

#include "commands/arguments.h"
#include "commands/channel_report.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/remind_client.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

using host::DiaryItem;
using host::ReminderFault;

void addItem(CLI::App& command, Arguments& arguments) {
  addChoice(command, "KIND", "KIND", host::diaryKinds(), "",
            [&arguments](const host::DiaryKind& row) { arguments.itemKind = row.kind; })
      ->required();
  addNumber(command, "ID", "number of the item (see: hvnotify appointments)", arguments.item)
      ->required();
}

/// What stands behind the item's name.
std::string wordsOf(ReminderFault fault, const host::Reminders& reminders) {
  const std::string day = host::dayText(reminders.item.day.value_or(DateTime{}));
  switch (fault) {
    case ReminderFault::noTask:
      return "of the diary belongs to no task that is notified";
    case ReminderFault::noDay:
      return "has no date";
    case ReminderFault::noTime:
      return "has no time: it needs its start and its end";
    case ReminderFault::noClient:
      return "has no client";
    case ReminderFault::isOver:
      return "was on " + day + "; give --date to tell the client all the same";
    case ReminderFault::dateIsLate:
      return "is on " + day + ", before that reminder";
    default:
      return "has no working day before it: " + reminders.errors;
  }
}

Reply reportItem(host::Desk& desk, const host::Reminders& reminders) {
  const DiaryItem& item = reminders.item;
  const std::string subject = subjectOf(item);
  if (reminders.fault == ReminderFault::dateOfTask)
    throw Refusal("--date does not go with a task", exitUsage);
  if (reminders.fault) throw Refusal(subject + " " + wordsOf(*reminders.fault, reminders));
  const Json identity{{"kind", host::diaryKind(item.kind).word}, {"id", item.id}};
  return reportChannels(desk, subject, identity, reminders.channels);
}

}  // namespace

void describeAppointments(CLI::App& command, Arguments& arguments) {
  addChoice(command, "--kind", "KIND", host::diaryKinds(),
            " alone (default: appointments and time entries)",
            [&arguments](const host::DiaryKind& row) { arguments.itemKind = row.kind; });
  addNumber(command, "--client", "only those of this business client", arguments.client);
  addNumber(command, "--contact", "only those of this contact", arguments.contact);
  addDate(command, "--since", "from this date on (default: today)", arguments.since);
  addDate(command, "--until", "only those on this date or before", arguments.until);
}

Reply listAppointments(host::Desk& desk, const Arguments& arguments, RowForm form) {
  host::DiaryQuery query{arguments.itemKind,
                         arguments.since.value_or(desk.today()),
                         arguments.until,
                         {},
                         arguments.contact};
  if (arguments.client) query.company = desk.clients().getCompanyIDFromClientID(*arguments.client);
  RowPrinter printer(form, {{"kind", "KIND"},
                            {"id", "ID"},
                            {"date", "DATE"},
                            {"time", "TIME"},
                            {"channels", "CHANNELS"},
                            {"client", "CLIENT"},
                            {"companyId", nullptr},
                            {"contactId", nullptr},
                            {"subject", "SUBJECT"}});
  const host::LookupBatch batch(desk);
  const host::ReadableRows<DiaryItem> items = host::readDiary(desk, query);
  for (const DiaryItem& item : items.rows)
    printer.add(std::array{Json(host::diaryKind(item.kind).word), Json(item.id),
                           dayJson(item.day.value_or(DateTime{})), Json(timeText(item)),
                           channelList(item.channels), Json(clientName(desk, item)),
                           Json(item.companyId), Json(item.contactId), Json(item.subject)});
  return endList(printer, "nothing found in the diary", items.unreadable);
}

void describeArmItem(CLI::App& command, Arguments& arguments) {
  addItem(command, arguments);
  addChannels(command, arguments);
  addDate(command, "--date",
          "when the reminder is to be sent (default: the last working day before the item; "
          "not for a task, whose date follows its due date)",
          arguments.date);
}

Reply runArmItem(host::Desk& desk, const Arguments& arguments) {
  return reportItem(desk, doneOrRefuse(host::armReminders(desk, *arguments.itemKind, arguments.item,
                                                          arguments.channels, arguments.date)));
}

void describeDisarmItem(CLI::App& command, Arguments& arguments) {
  addItem(command, arguments);
  addChannels(command, arguments);
  addForce(command, arguments);
}

Reply runDisarmItem(host::Desk& desk, const Arguments& arguments) {
  return reportItem(desk,
                    doneOrRefuse(host::disarmReminders(desk, *arguments.itemKind, arguments.item,
                                                       arguments.channels, arguments.force)));
}

}  // namespace autonotify::console
