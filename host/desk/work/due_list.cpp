#include "host/desk/work/due_list.h"

#include <fmt/format.h>

#include "host/clients/record_rows.h"

namespace autonotify::host {
namespace {

/// The rows that meet `condition`, by date. They are read to the end before anything is looked up
/// for them: a server is asked anew for each row that was left while something else was read.
std::vector<Notification> readNotifications(Desk& desk, const std::string& condition) {
  const std::string sql = fmt::format(
      "SELECT {} FROM ClientNotification WHERE {} ORDER BY ClientNotification.NotificationDate, "
      "ClientNotification.ClientNotificationID;",
      summaryColumns, condition);
  std::vector<Notification> rows;
  forEachRow(desk.database(), sql, [&](const Row& row) { rows.push_back(readSummary(row)); });
  return rows;
}

std::string interruptedCondition() {
  return fmt::format(
      "ClientNotification.NotificationSent=True AND ClientNotification.NotificationSentStatus={}",
      static_cast<int>(enumNotificationSendStatus_NotSent));
}

}  // namespace

std::string dueCondition(Desk& desk) {
  return fmt::format(
      "ClientNotification.NotificationDate <= #{}# AND ClientNotification.NotificationSent=False",
      desk.database().formatDateForSQL(desk.today()));
}

std::vector<Notification> readDue(Desk& desk) {
  return readNotifications(desk, dueCondition(desk));
}

std::vector<Id> notificationsToSend(Desk& desk) {
  std::vector<Id> ids;
  for (const std::string& condition : {interruptedCondition(), dueCondition(desk)})
    for (const Notification& row : readNotifications(desk, condition)) ids.push_back(row.id);
  return ids;
}

std::size_t countDueNotifications(Desk& desk) {
  return countRows(desk.database(), "ClientNotification WHERE " + dueCondition(desk));
}

}  // namespace autonotify::host
