#include "host/desk/work/task_list.h"

#include <fmt/format.h>

#include <array>

#include "host/database/schema/caseless.h"
#include "host/desk/work/due_list.h"

namespace autonotify::host {
namespace {

/// With the names of clients, by which they can be ordered.
constexpr const char* tasksAndClients =
    "((Schedule LEFT JOIN ClientData ON Schedule.ClientNum = ClientData.ClientDataID) "
    "LEFT JOIN Companies ON ClientData.CompanyIDNum = Companies.CompanyID) "
    "LEFT JOIN Contacts ON Schedule.ContactIDNum = Contacts.ContactID";

/// What each TaskOrder goes by; the key makes the order complete.
constexpr std::array<const char*, 3> orders{
    "Schedule.DueDate",
    "LOWER(COALESCE(Companies.CompanyName, Contacts.DisplayName, ''))",
    "Schedule.scheduleName",
};

/// The text as the pattern of a LIKE: "%text%", quotes doubled, with "!" before what else would be
/// a joker. Small are the letters that every engine's LOWER knows.
std::string likePattern(const std::string& text) {
  std::string pattern;
  for (const char c : text) {
    if (c == '%' || c == '_' || c == '!') pattern += '!';
    pattern += lowerAscii(c);
    if (c == '\'') pattern += c;
  }
  return "'%" + pattern + "%'";
}

/// Names are searched where each stands once, before the tasks, of which there are many.
std::string filterCondition(const std::string& filter) {
  const std::string pattern = likePattern(filter);
  const auto fits = [&](const char* column) {
    return fmt::format("LOWER({}) LIKE {} ESCAPE '!'", column, pattern);
  };
  return fmt::format(
      "(Schedule.ClientNum IN (SELECT ClientData.ClientDataID FROM ClientData INNER JOIN Companies "
      "ON ClientData.CompanyIDNum = Companies.CompanyID WHERE {}) OR Schedule.ContactIDNum IN "
      "(SELECT Contacts.ContactID FROM Contacts WHERE {}) OR {})",
      fits("Companies.CompanyName"), fits("Contacts.DisplayName"), fits("Schedule.scheduleName"));
}

std::string conditionOf(Desk& desk, const TaskQuery& query) {
  std::string condition = "Schedule.Closed=False";
  if (query.client) condition += fmt::format(" AND Schedule.ClientNum={}", *query.client);
  if (query.contact) condition += fmt::format(" AND Schedule.ContactIDNum={}", *query.contact);
  if (query.until) {
    const std::string day = desk.database().formatDateForSQL(*query.until);
    condition +=
        " AND " + orNoDate(fmt::format("Schedule.DueDate <= #{}#", day), "Schedule.DueDate");
  }
  if (query.isToNotify) {
    condition +=
        " AND Schedule.ScheduleID IN (SELECT ClientNotification.ScheduleIDNum FROM "
        "ClientNotification WHERE " +
        dueCondition(desk) + ")";
  }
  if (!query.filter.empty()) condition += " AND " + filterCondition(query.filter);
  return condition;
}

std::string orderOf(const TaskQuery& query) {
  return fmt::format("{0}{1}, Schedule.ScheduleID{1}",
                     orders.at(static_cast<std::size_t>(query.order)),
                     query.descending ? " DESC" : "");
}

/// What stands behind FROM.
std::string tasksOf(Desk& desk, const TaskQuery& query) {
  return fmt::format("{} WHERE {}", query.order == TaskOrder::client ? tasksAndClients : "Schedule",
                     conditionOf(desk, query));
}

std::string selectTasks(Desk& desk, const TaskQuery& query) {
  return fmt::format("SELECT {} FROM {} ORDER BY {}", taskColumns, tasksOf(desk, query),
                     orderOf(query));
}

bool isWithin(const Task& task, const TaskQuery& query) {
  return !query.until || task.dueDate <= *query.until;
}

void readNotifications(Desk& desk, TaskLine& line, UnreadableRows& unreadable) {
  const ReadableRows<Notification> notifications = readNotificationsOf(desk, line.task.id);
  unreadable.name(notifications.unreadable);
  for (const Notification& notification : notifications.rows) {
    const NotificationState state = stateOf(notification);
    if (state == NotificationState::sent) line.sentChannels |= notification.channel;
    if (state != NotificationState::pending) continue;
    line.pendingChannels |= notification.channel;
    if (line.notificationDate.isZero() || notification.date < line.notificationDate)
      line.notificationDate = notification.date;
  }
}

}  // namespace

TaskState stateOf(const TaskLine& line, DateTime today) {
  if (line.pendingChannels)
    return line.notificationDate <= today ? TaskState::due : TaskState::waiting;
  return line.sentChannels ? TaskState::sent : TaskState::none;
}

TaskLines readTaskLines(Desk& desk, const TaskQuery& query, std::size_t offset, std::size_t count) {
  TaskLines lines;
  const std::string sql =
      fmt::format("{} LIMIT {} OFFSET {};", selectTasks(desk, query), count, offset);
  readRows(desk.database(), taskTable, sql, lines, [&](const Row& row) {
    ++lines.passed;
    TaskLine line;
    line.task = readTask(row);
    return line;
  });
  std::erase_if(lines.rows, [&](const TaskLine& line) { return !isWithin(line.task, query); });
  for (TaskLine& line : lines.rows) {
    lines.unreadable.orName([&] { line.client = clientName(desk, line.task); });
    readNotifications(desk, line, lines.unreadable);
  }
  return lines;
}

ReadableRows<Task> readTasks(Desk& desk, const TaskQuery& query) {
  ReadableRows<Task> tasks;
  readRows(desk.database(), taskTable, selectTasks(desk, query) + ";", tasks, readTask);
  std::erase_if(tasks.rows, [&](const Task& task) { return !isWithin(task, query); });
  return tasks;
}

std::size_t countTasks(Desk& desk, const TaskQuery& query) {
  return countRows(desk.database(), tasksOf(desk, query));
}

}  // namespace autonotify::host
