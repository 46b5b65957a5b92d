#include "channels/modChannelNotifications.h"
#include "channels/recipients.h"
#include "contract/enumerations.h"
#include "contract/firm_rules.h"
#include "contract/tags.h"
#include "platform/format.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modChannelNotifications", name>;

/// A channel's way to its row.
struct Channel {
  notifyType value;
  /// The recipient when the procedure works from the schedule entry, and from the caller's ids.
  ChannelFields (*fieldsFromEntry)(Step&, const NotificationClient&);
  ChannelFields (*fieldsFromIds)(Step&, const NotificationClient&);
  /// The column of the subject, and the statement for its parts; absent where there is no subject.
  const char* subjectColumn = nullptr;
  const char* subjectStatement = nullptr;
  /// The firm's own rule names the in-house due date in the subject.
  bool hasFirmSubject = false;
};

constexpr Channel email{
    nt_Email,
    emailFields,
    listedEmailFields,
    "Field4",
    "SELECT Schedule.ScheduleID, Schedule.scheduleName, Schedule.DueDate, Schedule.inHouseDueDate "
    "FROM Schedule WHERE ScheduleID=",
    true};
constexpr Channel fax{
    nt_Fax, faxFields, faxFields, "Field6",
    "SELECT Schedule.ScheduleID, Schedule.scheduleName, Schedule.DueDate FROM Schedule WHERE "
    "ScheduleID="};
constexpr Channel letter{nt_Letter, letterFields, letterFields};
constexpr Channel phone{nt_Phone, phoneFields, phoneFields};

/// What an add has found out by the time it writes.
struct Contents {
  NotificationClient client;
  ChannelFields fields;
  std::string memo;
  DateTime date = {};
};

std::string subjectText(const std::string& scheduleName, DateTime dueDate) {
  return "Your " + scheduleName + " is due on " + formatDateTime(dueDate, "dddd, mmmm d yyyy");
}

std::string subjectFromEntry(Step& step, const Channel& channel, Id scheduleId) {
  std::string subject;
  if (Rows entry(step, channel.subjectStatement, scheduleId, keysetRead); entry) {
    const bool inHouse = channel.hasFirmSubject && step.holds(hasFirmRules);
    const std::string name = entry.text("scheduleName");
    const Value date = entry.value(inHouse ? "inHouseDueDate" : "DueDate");
    step.assign(subject, [&] { return subjectText(name, toDateTime(date)); });
  }
  return subject;
}

DateTime dateOfNewNotification(Id scheduleId) {
  return adjustDateToFridayIfWeekendOrHoliday(
      getLastUsedNotificationDate(scheduleId, determineNotificationDate(scheduleId)));
}

/// The zero date is none.
std::string dateText(DateTime date) {
  return date.isZero() ? std::string{} : toText(date);
}

void writeNewRow(Step& step, Id& key, notifyType channel, Id scheduleId, const Contents& contents) {
  NewRow row(step, "ClientNotification");
  row.set("NotificationType", int{channel});
  row.set("ScheduleIDNum", scheduleId);
  row.set("NotificationDate", [&] { return dateText(contents.date); });
  for (const auto& [column, text] : contents.fields) row.set(column, text);
  row.set("Memo", contents.memo);
  row.set("CompanyIDNum", contents.client.companyId);
  row.set("ContactIDNum", contents.client.contactId);
  row.set("DateCreated", nowText);
  row.set("CreatedByUserIDNum", [] { return locale().getCurrentUserID(); });
  row.save(key, "ClientNotificationID");
}

/// The steps of all eight adds; `find(step)` gives the contents. The date comes first, also when
/// the database turns out to be closed.
template <class Find>
Id addNotification(std::string_view frameTag, const Channel& channel, Id scheduleId, Find&& find) {
  return procedure(frameTag, noId, [&](Step& step, Id& result) {
    const DateTime date = dateOfNewNotification(scheduleId);
    if (!isDatabaseOpen(step)) return;
    Contents contents = find(step);
    contents.date = date;
    writeNewRow(step, result, channel.value, scheduleId, contents);
  });
}

Id addFromScheduleId(std::string_view frameTag, const Channel& channel, Id scheduleId) {
  return addNotification(frameTag, channel, scheduleId, [&](Step& step) {
    Contents contents;
    contents.client = clientOfScheduleEntry(step, scheduleId);
    contents.fields = channel.fieldsFromEntry(step, contents.client);
    if (const char* column = channel.subjectColumn) {
      contents.fields.emplace_back(column, subjectFromEntry(step, channel, scheduleId));
    }
    contents.memo = generateClientAutoNotifyComment(scheduleId);
    return contents;
  });
}

Id addFromName(std::string_view frameTag, const Channel& channel, const KnownEntry& entry) {
  return addNotification(frameTag, channel, entry.scheduleID, [&](Step& step) {
    ChannelFields fields = channel.fieldsFromIds(step, entry.client);
    Contents contents{entry.client, std::move(fields), entry.templateComment};
    if (const char* column = channel.subjectColumn) {
      contents.fields.emplace_back(column, subjectText(entry.scheduleName, entry.dueDate));
    }
    return contents;
  });
}

}  // namespace

Id addNewEmailNotificationFromScheduleIDNum(Id scheduleID) {
  return addFromScheduleId(tagOf<"addNewEmailNotificationFromScheduleIDNum">, email, scheduleID);
}

Id addNewFaxNotificationFromScheduleIDNum(Id scheduleID) {
  return addFromScheduleId(tagOf<"addNewFaxNotificationFromScheduleIDNum">, fax, scheduleID);
}

Id addNewLetterNotificationFromScheduleIDNum(Id scheduleID) {
  return addFromScheduleId(tagOf<"addNewLetterNotificationFromScheduleIDNum">, letter, scheduleID);
}

Id addNewPhoneNotificationFromScheduleIDNum(Id scheduleID) {
  return addFromScheduleId(tagOf<"addNewPhoneNotificationFromScheduleIDNum">, phone, scheduleID);
}

Id addNewEmailNotificationFromScheduleNameAndDueDate(const KnownEntry& entry) {
  return addFromName(tagOf<"addNewEmailNotificationFromScheduleNameAndDueDate">, email, entry);
}

Id addNewFaxNotificationFromScheduleNameAndDueDate(const KnownEntry& entry) {
  return addFromName(tagOf<"addNewFaxNotificationFromScheduleNameAndDueDate">, fax, entry);
}

Id addNewLetterNotificationFromScheduleNameAndDueDate(const KnownEntry& entry) {
  return addFromName(tagOf<"addNewLetterNotificationFromScheduleNameAndDueDate">, letter, entry);
}

Id addNewPhoneNotificationFromScheduleNameAndDueDate(const KnownEntry& entry) {
  return addFromName(tagOf<"addNewPhoneNotificationFromScheduleNameAndDueDate">, phone, entry);
}

}  // namespace autonotify
