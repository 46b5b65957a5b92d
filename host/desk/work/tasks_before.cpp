#include "host/desk/work/tasks_before.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/desk/rows/Notification.h"
#include "host/desk/rows/readable_rows.h"

namespace autonotify::host {

TasksBefore::TasksBefore(Desk& desk, const std::vector<Task>& tasks,
                         std::span<const notifyType> channels)
    : desk_(desk), channels_(channels.begin(), channels.end()) {
  for (const Task& task : tasks) tasks_.push_back(task.id);
  rows_ = readRows();
  for (const auto& [id, row] : rows_)
    if (const auto channel = std::ranges::find(channels_, row.channel); channel != channels_.end())
      armed_.emplace(row.task, *channel);
}

TasksBefore::RowsById TasksBefore::readRows() const {
  RowsById rows;
  for (const Id task : tasks_) {
    const auto read = [&](const Row& row) {
      RowBefore& found = rows[row.id("ClientNotificationID")];
      found = {task, row.id("NotificationType", 0), {}};
      std::ranges::transform(columns, found.fields.begin(),
                             [&](const char* column) { return row.text(column); });
    };
    const std::string sql = fmt::format(
        "SELECT ClientNotification.* FROM ClientNotification WHERE ScheduleIDNum={};", task);
    forEachRow(desk_.database(), sql,
               [&](const Row& row) { readRow(notificationTable, row, read); });
  }
  return rows;
}

bool TasksBefore::hasRows(notifyType channel) const {
  return std::ranges::any_of(armed_, [&](const auto& armed) { return armed.second == channel; });
}

void TasksBefore::restoreMarks() {
  for (const auto& [task, channel] : armed_)
    desk_.control().cls_changeNotificationStatus(channel, nt_AddStatus, task);
}

void TasksBefore::restoreRecipients() {
  for (const auto& [id, now] : readRows()) {
    const auto before = rows_.find(id);
    if (before != rows_.end() && before->second.fields != now.fields)
      restoreFields(id, before->second);
  }
}

void TasksBefore::restoreFields(Id id, const RowBefore& before) {
  const std::string sql = fmt::format(
      "SELECT ClientNotification.* FROM ClientNotification WHERE ClientNotificationID={};", id);
  OpenRows rows(desk_.database(), sql, CursorMode::keyset, LockMode::updatable);
  if (rows.isAtEnd()) return;
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (rows.row().text(columns[i]) != before.fields[i])
      desk_.database().updateFieldValue(rows.handle(), columns[i], before.fields[i], false, false);
}

void TasksBefore::takeBack() {
  for (const auto& [id, row] : readRows())
    if (!rows_.contains(id)) desk_.control().cls_deleteNotification(id);
  for (const Id task : tasks_) {
    for (const notifyType channel : channels_)
      if (!hasRow(task, channel))
        desk_.control().cls_changeNotificationStatus(channel, nt_RemoveStatus, task);
  }
}

}  // namespace autonotify::host
