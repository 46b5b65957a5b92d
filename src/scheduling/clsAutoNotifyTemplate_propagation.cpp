#include <optional>

#include "contract/tags.h"
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

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyTemplate", name>;

RecordsetHandle openAllNotifications() {
  return openRecordset(allNotifications, keysetUpdate);
}

void raise(Step& step, const std::function<void()>& event) {
  if (event) step.run(event);
}

void raiseStart(const Row& row, const std::function<void(std::int32_t)>& event) {
  const int count = row.step().value(0, [&] { return database().getRecordCount(row.handle()); });
  if (event) row.step().run(event, count);
}

/// Runs `visit()` on each row from the current one on; the listener and the host's messages have
/// their turn after each.
template <class Visit>
void forEachRowInSteps(const Row& row, const std::function<void()>& increment, Visit&& visit) {
  while (!row.isAtEnd()) {
    visit();
    raise(row.step(), increment);
    row.moveNext();
    yieldToHost(row.step(), 2);
  }
}

/// Stamps the current row of the notifications and writes one column.
template <class Given>
void rewrite(const Row& notification, const char* column, const Given& given) {
  notification.write("ClientNotificationModifiedStamp", nowText);
  notification.write(column, given);
}

bool isNoFlag(const Value& value) {
  return !toFlag(value);
}

/// A row whose state cannot be told is not unsent.
bool isUnsent(const Row& notification) {
  bool unsent = false;
  notification.read(unsent, "NotificationSent", isNoFlag);
  return unsent;
}

/// Gives the date, if it is known, to each unsent row that the schedule entry has among the
/// notifications.
void moveUnsent(const Row& notifications, Id scheduleID, std::optional<DateTime> date) {
  if (scheduleID < 0) return;
  Step& step = notifications.step();
  const bool found =
      step.holds(findRecord, notifications.handle(), "ScheduleNum", std::to_string(scheduleID));
  if (!found || !date) return;
  while (!notifications.isAtEnd()) {
    if (isUnsent(notifications)) rewrite(notifications, "NotificationDate", *date);
    step.run([&] { database().findNextRecord(notifications.handle()); });
  }
}

}  // namespace

bool clsAutoNotifyTemplate::resetNotificationDates() {
  return procedure(tagOf<"resetNotificationDates">, true, [&](Step& step, bool&) {
    if (isDatabaseOpen(step)) resetDatesOfKind(step);
    raise(step, endResetNotificationDates);
  });
}

void clsAutoNotifyTemplate::resetDatesOfKind(Step& step) {
  const std::string sql =
      "SELECT Schedule.ScheduleID, Schedule.TotalNum, Schedule.ScheduleNum FROM Schedule "
      "WHERE totalNum = " +
      std::to_string(columns_.totalNum) +
      " AND scheduleNum = " + std::to_string(columns_.ScheduleNum) + ";";
  const Rows entries(step, sql, keysetUpdate);
  if (!entries) return;
  const Row notifications(step, step.value(noRecordset, openAllNotifications));
  raiseStart(entries, startResetNotificationDates);
  forEachRowInSteps(entries, incResetNotificationDates, [&] {
    std::optional<DateTime> date;
    entries.read(date, "DueDate", [&](const Value& due) {
      return toDateTime(due).addDays(-columns_.notificationPeriod);
    });
    moveUnsent(notifications, entries.id("ScheduleID"), date);
  });
  notifications.close();
}

bool clsAutoNotifyTemplate::resetNotificationComments() {
  return procedure(tagOf<"resetNotificationComments">, true, [&](Step& step, bool&) {
    if (!isDatabaseOpen(step)) return;
    const Rows unsent(step, unsentNotifications, keysetUpdate);
    if (!unsent) return;
    raiseStart(unsent, startResetNotificationComments);
    forEachRowInSteps(unsent, incResetNotificationComments, [&] { resetCommentOf(unsent); });
  });
}

/// Composing opens the same table, which may move the row's position.
void clsAutoNotifyTemplate::resetCommentOf(const Row& notification) {
  const Id scheduleID = notification.id("ScheduleIDNum");
  if (scheduleID < 0 || !coversScheduleEntry(scheduleID)) return;
  const auto place = notification.place();
  changeNotificationComment(notification.id("ClientNotificationID"));
  notification.goTo(place);
}

bool clsAutoNotifyTemplate::coversScheduleEntry(Id scheduleID) const {
  const Id totalNum = getTotalNumFromScheduleID(scheduleID);
  const Id scheduleNum = getScheduleNumFromScheduleID(scheduleID);
  return totalNum == columns_.totalNum &&
         (columns_.ScheduleNum == -1 || scheduleNum == columns_.ScheduleNum);
}

void clsAutoNotifyTemplate::changeNotificationComment(Id notificationID) {
  procedure(tagOf<"changeNotificationComment">, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    const Rows row(step, notificationById, notificationID, keysetUpdate);
    if (!row) return;
    if (const auto text = textFor(step, notificationID)) rewrite(row, "Memo", *text);
  });
}

std::string clsAutoNotifyTemplate::composeNotificationComment(Id notificationID) {
  const auto compose = [&](Step& step, std::string& result) {
    if (isDatabaseOpen(step)) result = textFor(step, notificationID).value_or("");
  };
  return procedure(tagOf<"composeNotificationComment">, std::string{}, compose);
}

/// Nothing for a notification that keeps its text: that of a client who is a contact only.
std::optional<std::string> clsAutoNotifyTemplate::textFor(Step& step, Id notificationID) {
  const Id scheduleID = getScheduleIDFromNotificationID(notificationID);
  const Id clientDataID = getClientDataIDFromScheduleID(scheduleID);
  // Asked for as hosts know it, though a company's text goes without the entry's contact.
  getContactIDFromScheduleID(scheduleID);
  if (clientDataID < 0) return std::nullopt;
  Id companyID = noId;
  step.assign(companyID, [&] { return clients().getCompanyIDFromClientID(clientDataID); });
  if (scheduleID < 0) return std::nullopt;
  const Id taskID = getTaskIDFromScheduleID(scheduleID);
  return generateComment(get_notificationComment(), scheduleID, taskID, companyID, noId);
}

}  // namespace autonotify
