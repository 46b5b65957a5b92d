#include <optional>

#include "contract/windows.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"

namespace autonotify {
namespace {

constexpr const char* allNotifications = "SELECT ClientNotification.* FROM ClientNotification;";
constexpr const char* unsentNotifications =
    "SELECT ClientNotification.* FROM ClientNotification WHERE NotificationSent = FALSE;";

std::string tag(const char* procedureName) {
  return std::string("Morvane.exe-clsAutoNotifyTemplate-") + procedureName;
}

void raise(Step& step, const std::function<void()>& event) {
  if (event) step.run([&] { event(); });
}

void raiseStart(Step& step, const std::function<void(std::int32_t)>& event,
                RecordsetHandle handle) {
  const int count = step.value(0, [&] { return database().getRecordCount(handle); });
  if (event) step.run([&] { event(count); });
}

/// Runs `visit()` on each row from the current one on; the listener and the host's messages have
/// their turn after each.
template <class Visit>
void forEachRowInSteps(Step& step, RecordsetHandle handle, const std::function<void()>& increment,
                       Visit&& visit) {
  while (!step.value(true, [&] { return database().isEndOfRecordset(handle); })) {
    visit();
    raise(step, increment);
    step.run([&] { database().moveNext(handle); });
    yieldToHost(step, 2);
  }
}

/// Stamps the current row of the notifications and writes one column.
template <class TextOf>
void rewrite(Step& step, RecordsetHandle notifications, const char* column, TextOf&& value) {
  writeField(step, notifications, "ClientNotificationModifiedStamp", nowText);
  writeField(step, notifications, column, value);
}

/// A row whose state cannot be told is not unsent.
bool isUnsent(Step& step, RecordsetHandle notifications) {
  return step.value(
      false, [&] { return !toFlag(database().getFieldValue(notifications, "NotificationSent")); });
}

/// Gives the date, if it is known, to each unsent row that the schedule entry has among the
/// notifications.
void moveUnsent(Step& step, RecordsetHandle notifications, Id scheduleID,
                std::optional<DateTime> date) {
  if (scheduleID < 0) return;
  const bool found = step.value(
      false, [&] { return findRecord(notifications, "ScheduleNum", std::to_string(scheduleID)); });
  if (!found || !date) return;
  while (!step.value(true, [&] { return database().isEndOfRecordset(notifications); })) {
    if (isUnsent(step, notifications))
      rewrite(step, notifications, "NotificationDate", [&] { return toText(*date); });
    step.run([&] { database().findNextRecord(notifications); });
  }
}

}  // namespace

bool clsAutoNotifyTemplate::resetNotificationDates() {
  return procedure(tag("resetNotificationDates"), true, [&](Step& step, bool&) {
    if (isDatabaseOpen(step)) {
      const std::string sql =
          "SELECT Schedule.ScheduleID, Schedule.TotalNum, Schedule.ScheduleNum FROM Schedule "
          "WHERE totalNum = " +
          std::to_string(columns_.totalNum) +
          " AND scheduleNum = " + std::to_string(columns_.ScheduleNum) + ";";
      withFirstRow(step, sql, keysetUpdate, [&](RecordsetHandle schedule) {
        RecordsetHandle notifications = noRecordset;
        step.assign(notifications, [] {
          return openRecordset(allNotifications, CursorMode::keyset, LockMode::updatable);
        });
        raiseStart(step, startResetNotificationDates, schedule);
        forEachRowInSteps(step, schedule, incResetNotificationDates, [&] {
          std::optional<DateTime> date;
          step.assign(date, [&] {
            const Value due = database().getFieldValue(schedule, "DueDate");
            return toDateTime(due).addDays(-columns_.notificationPeriod);
          });
          moveUnsent(step, notifications, readId(step, schedule, "ScheduleID"), date);
        });
        step.run([&] { database().closeRecordset(notifications); });
      });
    }
    raise(step, endResetNotificationDates);
  });
}

bool clsAutoNotifyTemplate::resetNotificationComments() {
  return procedure(tag("resetNotificationComments"), true, [&](Step& step, bool&) {
    if (!isDatabaseOpen(step)) return;
    withFirstRow(step, unsentNotifications, keysetUpdate, [&](RecordsetHandle handle) {
      raiseStart(step, startResetNotificationComments, handle);
      forEachRowInSteps(step, handle, incResetNotificationComments, [&] {
        const Id scheduleID = readId(step, handle, "ScheduleIDNum");
        if (scheduleID < 0 || !coversScheduleEntry(scheduleID)) return;
        std::optional<Bookmark> place;
        step.assign(place, [&] { return database().getBookmark(handle); });
        const Id notificationID = readId(step, handle, "ClientNotificationID");
        changeNotificationComment(notificationID);
        if (place) step.run([&] { database().gotoBookmark(handle, *place); });
      });
    });
  });
}

bool clsAutoNotifyTemplate::coversScheduleEntry(Id scheduleID) const {
  const Id totalNum = getTotalNumFromScheduleID(scheduleID);
  const Id scheduleNum = getScheduleNumFromScheduleID(scheduleID);
  return totalNum == columns_.totalNum &&
         (columns_.ScheduleNum == -1 || scheduleNum == columns_.ScheduleNum);
}

void clsAutoNotifyTemplate::changeNotificationComment(Id notificationID) {
  procedure(tag("changeNotificationComment"), [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    withRow(step, notificationById, notificationID, keysetUpdate, [&](RecordsetHandle handle) {
      const Id scheduleID = getScheduleIDFromNotificationID(notificationID);
      const Id clientDataID = getClientDataIDFromScheduleID(scheduleID);
      Id contactID = getContactIDFromScheduleID(scheduleID);
      // The text of a client who is a contact only stays as it is.
      if (clientDataID < 0) return;
      Id companyID = noId;
      step.assign(companyID, [&] { return clients().getCompanyIDFromClientID(clientDataID); });
      contactID = noId;  // a company's text goes without the entry's contact
      if (scheduleID < 0) return;
      const Id taskID = getTaskIDFromScheduleID(scheduleID);
      const std::string text =
          generateComment(get_notificationComment(), scheduleID, taskID, companyID, contactID);
      rewrite(step, handle, "Memo", [&] { return text; });
    });
  });
}

}  // namespace autonotify
