#include "commands/items.h"

#include <fmt/format.h>

#include "TextTable.h"
#include "commands/arguments.h"
#include "commands/armable.h"
#include "diary_items.h"
#include "notifications.h"

namespace autonotify::console {
namespace {

void addItem(CLI::App& command, Arguments& arguments) {
  addChoice(command, "KIND", "KIND", diaryWords(), "", [&arguments](const DiaryWord& row) {
    arguments.itemKind = row.kind;
  })->required();
  addNumber(command, "ID", "number of the item (see: hvnotify appointments)", arguments.item)
      ->required();
}

// Arming.

struct AddOperation {
  notifyType channel;
  Id (clsAutoNotifyCtrl::*add)(CurrentDayTimerType, Id, DateTime, Id, Id, Id);
};
constexpr AddOperation addOperations[] = {
    {nt_Email, &clsAutoNotifyCtrl::cls_addNewApptEmailNotification},
    {nt_Fax, &clsAutoNotifyCtrl::cls_addNewApptFaxNotification},
    {nt_Letter, &clsAutoNotifyCtrl::cls_addNewApptLetterNotification},
    {nt_Phone, &clsAutoNotifyCtrl::cls_addNewApptPhoneNotification},
};

/// For a client that a time entry lacks the component would look among the appointments. No company
/// and no contact has this number.
constexpr Id nobody = 0;

class ArmableItem : public Armable {
 public:
  ArmableItem(Session& opened, const DiaryItem& item, DateTime date)
      : Armable(opened), item_(item), date_(date) {}
  std::string words() const override { return fmt::format("{} {}", word().name, item_.id); }
  Json identity() const override { return {{"kind", word().word}, {"id", item_.id}}; }
  host::WorkItem claim() const override { return word().claim; }
  Id claimId() const override { return item_.kind == Tasks ? item_.scheduleId : item_.id; }
  int channels() override { return loadDiaryItem(session, item_.kind, item_.id).channels; }
  Id findRow(notifyType channel) override {
    return session.control().cls_getApptNotificationID(item_.kind, item_.id, channel);
  }
  Id addRow(notifyType channel) override {
    const AddOperation* operation = findChannel(addOperations, channel);
    if (!operation) return noId;
    return (session.control().*operation->add)(item_.kind, item_.id, date_, noId,
                                               given(item_.companyId), given(item_.contactId));
  }
  bool mark(notifyType channel, changeStatus change) override {
    return session.control().cls_changeApptNotificationStatus(item_.kind, channel, change,
                                                              item_.id);
  }

 private:
  const DiaryWord& word() const { return diaryWord(item_.kind); }
  Id given(Id client) const { return item_.kind == Dockets && client < 0 ? nobody : client; }

  DiaryItem item_;
  DateTime date_;
};

[[noreturn]] void refuse(const DiaryItem& item, const std::string& why) {
  throw Refusal(fmt::format("{} {} {}", diaryWord(item.kind).name, item.id, why));
}

void requireEntry(const DiaryItem& item) {
  if (item.scheduleId < 0) refuse(item, "of the diary belongs to no task that is notified");
}

/// Throws Refusal for an item of which no sentence can be made, or nobody told.
void requireReminder(const DiaryItem& item) {
  if (!item.day) refuse(item, "has no date");
  if (!item.from || !item.to) refuse(item, "has no time: it needs its start and its end");
  if (item.companyId <= 0 && item.contactId <= 0) refuse(item, "has no client");
}

/// The day on which the reminder falls due.
DateTime reminderDate(Session& session, const DiaryItem& item, const Arguments& arguments) {
  const bool isOver = item.day->dateOnly() < session.today();
  if (arguments.date && !isOver && *arguments.date > *item.day)
    refuse(item, fmt::format("is on {}, before that reminder", dayText(*item.day)));
  if (arguments.date) return *arguments.date;
  if (isOver) {
    refuse(item, fmt::format("was on {}; give --date to tell the client all the same",
                             dayText(*item.day)));
  }
  DateTime date;
  const std::string errors = session.errorsOf(
      [&] { date = session.tools().lastWorkingDay(item.day->dateOnly().addDays(-1)); });
  if (!errors.empty()) refuse(item, "has no working day before it: " + errors);
  return date;
}

}  // namespace

void describeAppointments(CLI::App& command, Arguments& arguments) {
  addChoice(command, "--kind", "KIND", diaryWords(),
            " alone (default: appointments and time entries)",
            [&arguments](const DiaryWord& row) { arguments.itemKind = row.kind; });
  addNumber(command, "--client", "only those of this business client", arguments.client);
  addNumber(command, "--contact", "only those of this contact", arguments.contact);
  addDate(command, "--since", "from this date on (default: today)", arguments.since);
  addDate(command, "--until", "only those on this date or before", arguments.until);
}

Reply runAppointments(Session& session, const Arguments& arguments) {
  DiaryQuery query{arguments.itemKind,
                   arguments.since.value_or(session.today()),
                   arguments.until,
                   {},
                   arguments.contact};
  if (arguments.client)
    query.company = session.clients().getCompanyIDFromClientID(*arguments.client);
  Reply reply;
  reply.data = Json::array();
  TextTable table({"KIND", "ID", "DATE", "TIME", "CHANNELS", "CLIENT", "SUBJECT"});
  const LookupBatch batch(session);
  for (const DiaryItem& item : readDiary(session, query)) {
    const std::string client = clientName(session, item);
    const char* kind = diaryWord(item.kind).word;
    const DateTime day = item.day.value_or(DateTime{});
    table.add({kind, std::to_string(item.id), dayText(day), timeText(item),
               channelNames(item.channels), client, item.subject});
    reply.data.push_back({{"kind", kind},
                          {"id", item.id},
                          {"date", dayJson(day)},
                          {"time", timeText(item)},
                          {"channels", channelList(item.channels)},
                          {"client", client},
                          {"companyId", item.companyId},
                          {"contactId", item.contactId},
                          {"subject", item.subject}});
  }
  if (table.isEmpty()) {
    reply.exitCode = exitRefused;
    reply.complaints.push_back("nothing found in the diary");
    return reply;
  }
  reply.text = table.toText();
  return reply;
}

void describeArmItem(CLI::App& command, Arguments& arguments) {
  addItem(command, arguments);
  addChannels(command, arguments);
  addDate(command, "--date",
          "when the reminder is to be sent (default: the last working day before the item; "
          "not for a task, whose date follows its due date)",
          arguments.date);
}

Reply runArmItem(Session& session, const Arguments& arguments) {
  const DiaryItem item = loadDiaryItem(session, *arguments.itemKind, arguments.item);
  DateTime date;
  if (item.kind == Tasks) {
    if (arguments.date) throw Refusal("--date does not go with a task", exitUsage);
    requireEntry(item);
  } else {
    requireReminder(item);
    date = reminderDate(session, item, arguments);
  }
  ArmableItem armable(session, item, date);
  return armChannels(session, armable, arguments);
}

void describeDisarmItem(CLI::App& command, Arguments& arguments) {
  addItem(command, arguments);
  addChannels(command, arguments);
  addForce(command, arguments);
}

Reply runDisarmItem(Session& session, const Arguments& arguments) {
  const DiaryItem item = loadDiaryItem(session, *arguments.itemKind, arguments.item);
  if (item.kind == Tasks) requireEntry(item);
  ArmableItem armable(session, item, DateTime{});
  return disarmChannels(session, armable, arguments);
}

}  // namespace autonotify::console
