#include "host/desk/work/change_notification.h"

#include <algorithm>
#include <initializer_list>
#include <map>

#include "host/desk/work/claiming.h"

namespace autonotify::host {
namespace {

/// Runs `change` on a row that is in one of the states that allow it.
template <class Act>
Outcome<Change> changeRow(Desk& desk, Id id, std::initializer_list<NotificationState> allowed,
                          Act&& change) {
  const auto claimed = claimNotification(desk, id);
  if (!claimed) return claimed.refused();
  if (std::ranges::find(allowed, stateOf(claimed->row)) == allowed.end())
    return Change{claimed->row, false};
  if (auto refused = tellComponent(desk, subjectOf(WorkItem::notification, id), change))
    return *std::move(refused);
  auto row = requireNotification(desk, id);
  if (!row) return row.refused();
  return Change{*std::move(row)};
}

}  // namespace

Outcome<Change> cancelNotification(Desk& desk, Id id) {
  using enum NotificationState;
  return changeRow(desk, id, {pending, interruptedCancel, interruptedSending},
                   [&] { desk.tools().cancelNotification(id); });
}

Outcome<Change> moveNotification(Desk& desk, Id id, DateTime date) {
  return changeRow(desk, id, {NotificationState::pending},
                   [&] { desk.control().cls_ChangeNotificationNotifiedDate(id, date); });
}

Outcome<std::vector<Refreshed>> refreshNotifications(Desk& desk, Id task) {
  const auto claimed = claimTask(desk, task);
  if (!claimed) return claimed.refused();
  std::map<Id, DateTime> former;
  for (const Notification& row : readNotificationsOf(desk, task).rows) former[row.id] = row.date;
  return askComponent(desk, subjectOf(WorkItem::task, task), [&] {
    desk.control().cls_refreshNotificationDate(task);
    std::vector<Refreshed> rows;
    for (const notifyType channel : allNotifyTypes) {
      const Id id = desk.control().cls_getNotificationID(task, channel);
      if (auto row = findNotification(desk, id)) rows.push_back({*std::move(row), former[id]});
    }
    return rows;
  });
}

}  // namespace autonotify::host
