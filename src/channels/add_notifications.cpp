#include "channels/modChannelNotifications.h"
#include "channels/recipients.h"
#include "contract/enumerations.h"
#include "contract/firm_rules.h"
#include "platform/format.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

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
};

std::string subjectText(const std::string& scheduleName, DateTime dueDate) {
  return "Your " + scheduleName + " is due on " + formatDateTime(dueDate, "dddd, mmmm d yyyy");
}

std::string subjectFromEntry(Step& step, const Channel& channel, Id scheduleId) {
  std::string subject;
  withRow(step, channel.subjectStatement, scheduleId, keysetRead, [&](RecordsetHandle handle) {
    const bool inHouse = channel.hasFirmSubject && step.value(false, hasFirmRules);
    const std::string name = readText(step, handle, "scheduleName");
    const Value date = readField(step, handle, inHouse ? "inHouseDueDate" : "DueDate");
    step.assign(subject, [&] { return subjectText(name, toDateTime(date)); });
  });
  return subject;
}

DateTime dateOfNewNotification(Id scheduleId) {
  return adjustDateToFridayIfWeekendOrHoliday(
      getLastUsedNotificationDate(scheduleId, determineNotificationDate(scheduleId)));
}

void writeNewRow(Step& step, Id& key, const Channel& channel, Id scheduleId, DateTime date,
                 const Contents& contents) {
  addRow(step, key, "ClientNotification", "ClientNotificationID", [&](RecordsetHandle handle) {
    const auto set = [&](const char* column, const Value& value) {
      setField(step, handle, column, [&] { return toText(value); });
    };
    set("NotificationType", int{channel.value});
    set("ScheduleIDNum", scheduleId);
    set("NotificationDate", date);
    for (const auto& [column, text] : contents.fields) set(column, text);
    set("Memo", contents.memo);
    set("CompanyIDNum", contents.client.companyId);
    set("ContactIDNum", contents.client.contactId);
    setField(step, handle, "DateCreated", nowText);
    setField(step, handle, "CreatedByUserIDNum",
             [] { return toText(locale().getCurrentUserID()); });
  });
}

/// The steps of all eight adds; `find(step)` gives the contents. The date comes first, also when
/// the database turns out to be closed.
template <class Find>
Id addNotification(const char* tag, const Channel& channel, Id scheduleId, Find&& find) {
  return procedure(tag, noId, [&](Step& step, Id& result) {
    const DateTime date = dateOfNewNotification(scheduleId);
    if (!isDatabaseOpen(step)) return;
    const Contents contents = find(step);
    writeNewRow(step, result, channel, scheduleId, date, contents);
  });
}

Id addFromScheduleId(const char* tag, const Channel& channel, Id scheduleId) {
  return addNotification(tag, channel, scheduleId, [&](Step& step) {
    Contents contents;
    contents.client = clientOfScheduleEntry(step, scheduleId);
    contents.fields = channel.fieldsFromEntry(step, contents.client);
    if (channel.subjectColumn) {
      contents.fields.emplace_back(channel.subjectColumn,
                                   subjectFromEntry(step, channel, scheduleId));
    }
    contents.memo = generateClientAutoNotifyComment(scheduleId);
    return contents;
  });
}

Id addFromName(const char* tag, const Channel& channel, Id scheduleId,
               const NotificationClient& client, const std::string& scheduleName, DateTime dueDate,
               const std::string& templateComment) {
  return addNotification(tag, channel, scheduleId, [&](Step& step) {
    Contents contents{client, channel.fieldsFromIds(step, client), templateComment};
    if (channel.subjectColumn) {
      contents.fields.emplace_back(channel.subjectColumn, subjectText(scheduleName, dueDate));
    }
    return contents;
  });
}

}  // namespace

Id addNewEmailNotificationFromScheduleIDNum(Id scheduleID) {
  return addFromScheduleId(
      "Morvane.exe-modChannelNotifications-addNewEmailNotificationFromScheduleIDNum", email,
      scheduleID);
}

Id addNewFaxNotificationFromScheduleIDNum(Id scheduleID) {
  return addFromScheduleId(
      "Morvane.exe-modChannelNotifications-addNewFaxNotificationFromScheduleIDNum", fax,
      scheduleID);
}

Id addNewLetterNotificationFromScheduleIDNum(Id scheduleID) {
  return addFromScheduleId(
      "Morvane.exe-modChannelNotifications-addNewLetterNotificationFromScheduleIDNum", letter,
      scheduleID);
}

Id addNewPhoneNotificationFromScheduleIDNum(Id scheduleID) {
  return addFromScheduleId(
      "Morvane.exe-modChannelNotifications-addNewPhoneNotificationFromScheduleIDNum", phone,
      scheduleID);
}

Id addNewEmailNotificationFromScheduleNameAndDueDate(Id scheduleID, Id /*taskID*/, Id CompanyIDNum,
                                                     Id ContactIDNum,
                                                     const std::string& scheduleName,
                                                     DateTime dueDate,
                                                     const std::string& templateComment) {
  return addFromName(
      "Morvane.exe-modChannelNotifications-addNewEmailNotificationFromScheduleNameAndDueDate",
      email, scheduleID, {CompanyIDNum, ContactIDNum}, scheduleName, dueDate, templateComment);
}

Id addNewFaxNotificationFromScheduleNameAndDueDate(Id scheduleID, Id /*taskID*/, Id CompanyIDNum,
                                                   Id ContactIDNum, const std::string& scheduleName,
                                                   DateTime dueDate,
                                                   const std::string& templateComment) {
  return addFromName(
      "Morvane.exe-modChannelNotifications-addNewFaxNotificationFromScheduleNameAndDueDate", fax,
      scheduleID, {CompanyIDNum, ContactIDNum}, scheduleName, dueDate, templateComment);
}

Id addNewLetterNotificationFromScheduleNameAndDueDate(Id scheduleID, Id /*taskID*/, Id CompanyIDNum,
                                                      Id ContactIDNum,
                                                      const std::string& scheduleName,
                                                      DateTime dueDate,
                                                      const std::string& templateComment) {
  return addFromName(
      "Morvane.exe-modChannelNotifications-addNewLetterNotificationFromScheduleNameAndDueDate",
      letter, scheduleID, {CompanyIDNum, ContactIDNum}, scheduleName, dueDate, templateComment);
}

Id addNewPhoneNotificationFromScheduleNameAndDueDate(Id scheduleID, Id /*taskID*/, Id CompanyIDNum,
                                                     Id ContactIDNum,
                                                     const std::string& scheduleName,
                                                     DateTime dueDate,
                                                     const std::string& templateComment) {
  return addFromName(
      "Morvane.exe-modChannelNotifications-addNewPhoneNotificationFromScheduleNameAndDueDate",
      phone, scheduleID, {CompanyIDNum, ContactIDNum}, scheduleName, dueDate, templateComment);
}

}  // namespace autonotify
