#include "host/desk/work/tasks_before.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/desk/rows/Notification.h"
#include "host/desk/rows/readable_rows.h"

namespace autonotify::host {
namespace {

constexpr std::string_view recipientColumns[] = {"Field1", "Field2", "Field3",
                                                 "Field4", "Field5", "Field6"};

bool isRecipient(const std::string& table, std::string_view column) {
  return table == "ClientNotification" &&
         std::ranges::find(recipientColumns, column) != std::end(recipientColumns);
}

}  // namespace

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
      rows[row.id("ClientNotificationID")] = {task, row.id("NotificationType", 0)};
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

void TasksBefore::takeBack() {
  for (const auto& [id, row] : readRows())
    if (!rows_.contains(id)) desk_.control().cls_deleteNotification(id);
  for (const Id task : tasks_) {
    for (const notifyType channel : channels_)
      if (!hasRow(task, channel))
        desk_.control().cls_changeNotificationStatus(channel, nt_RemoveStatus, task);
  }
}

KeptRecipients::KeptRecipients(Desk& desk, const TasksBefore& before) : desk_(desk) {
  WriteWatch watch;
  watch.storing = [&](RecordsetHandle handle, const std::string& table, const std::string& column) {
    return isRecipient(table, column) &&
           before.hasRow(Row(desk.database(), handle).id("ClientNotificationID"));
  };
  desk.setWatch(std::move(watch));
}

}  // namespace autonotify::host
