#include "host/desk/work/due_list.h"

#include <fmt/format.h>

#include <cstdint>
#include <limits>

#include "host/desk/unfinished_rows.h"

namespace autonotify::host {
namespace {

constexpr const char* byDate = "ClientNotification.NotificationDate";
/// Of the column in COALESCE no index is used: by that of the dates an engine would go through all
/// rows to find a few.
constexpr const char* fewByDate =
    "COALESCE(ClientNotification.NotificationDate, ClientNotification.NotificationDate)";

/// The rows that meet `condition`, in the order of a date. They are read to the end before anything
/// is looked up for them: a server is asked anew for each row that was left while something else
/// was read.
void readNotifications(Desk& desk, const char* columns, const std::string& condition,
                       const char* order, ReadableRows<Notification>& into,
                       Notification (*read)(const Row&)) {
  const std::string sql = fmt::format(
      "SELECT {} FROM ClientNotification WHERE {} ORDER BY {}, "
      "ClientNotification.ClientNotificationID;",
      columns, condition, order);
  readRows(desk.database(), notificationTable, sql, into, read);
}

/// Dated by then, for a WHERE.
std::string datedBy(Desk& desk, DateTime moment) {
  return fmt::format("ClientNotification.NotificationDate <= #{}#",
                     desk.database().formatDateForSQL(moment));
}

/// Unsent, and written to its end, to be added to others.
std::string readyToGo() {
  return fmt::format(
      " AND ClientNotification.NotificationSent=False AND "
      "COALESCE(ClientNotification.DocketIDNum, {})<>{}",
      noId, unfinishedLink);
}

/// A date that could not be compared may be a later one after all.
void leaveOutLater(DateTime day, ReadableRows<Notification>& due) {
  std::erase_if(due.rows, [&](const Notification& row) { return row.date > day; });
}

/// A status that is too large for the column tells no more than that of a row not marked yet.
std::string interruptedCondition() {
  return fmt::format(
      "ClientNotification.NotificationSent<>False AND ({0}={1} OR {0}<{2} OR {0}>{3})",
      "ClientNotification.NotificationSentStatus",
      static_cast<int>(enumNotificationSendStatus_NotSent),
      std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max());
}

/// What is due, by date: without fields and text.
ReadableRows<Notification> readDue(Desk& desk) {
  ReadableRows<Notification> due;
  readNotifications(desk, summaryColumns, dueCondition(desk), byDate, due, readSummary);
  leaveOutLater(desk.today(), due);
  return due;
}

}  // namespace

std::string dueCondition(Desk& desk) {
  return dueCondition(desk, desk.today());
}

std::string dueCondition(Desk& desk, DateTime day) {
  return orNoDate(datedBy(desk, day), "ClientNotification.NotificationDate") + readyToGo();
}

ReadableRows<Notification> readWholeDue(Desk& desk, int channels, DateTime day) {
  ReadableRows<Notification> due;
  std::vector<Id> types;
  for (const notifyType channel : allNotifyTypes)
    if (channel & channels) types.push_back(channel);
  const std::string isOfChannels =
      fmt::format(" AND ClientNotification.NotificationType IN ({})", idList(std::move(types)));
  readNotifications(desk, "ClientNotification.*", dueCondition(desk, day) + isOfChannels, byDate,
                    due, readWhole);
  leaveOutLater(day, due);
  return due;
}

ReadableRows<Id> notificationsToSend(Desk& desk, int channels) {
  ReadableRows<Notification> interrupted;
  readNotifications(desk, summaryColumns, interruptedCondition(), fewByDate, interrupted,
                    readSummary);
  ReadableRows<Id> ids;
  for (const ReadableRows<Notification>& part : {interrupted, readDue(desk)}) {
    for (const Notification& row : part.rows) {
      if (row.channel & channels) ids.rows.push_back(row.id);
    }
    ids.unreadable.name(part.unreadable);
  }
  return ids;
}

// The list asks for this moment, so that a date with a later time is not in it yet.
std::size_t countListedNotifications(Desk& desk) {
  return countRows(desk.database(),
                   "ClientNotification WHERE " + datedBy(desk, desk.clock().now()) + readyToGo());
}

}  // namespace autonotify::host
