#include "host/desk/task_list.h"

#include <fmt/format.h>

#include <array>

#include "host/clients/record_rows.h"
#include "host/database/schema/caseless.h"

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
    condition += fmt::format(" AND Schedule.DueDate <= #{}#",
                             desk.database().formatDateForSQL(*query.until));
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

std::string selectTasks(Desk& desk, const char* columns, const TaskQuery& query) {
  return fmt::format("SELECT {} FROM {} WHERE {}", columns,
                     query.order == TaskOrder::client ? tasksAndClients : "Schedule",
                     conditionOf(desk, query));
}

template <class Visit>
void forEachNotification(Desk& desk, Id task, Visit&& visit) {
  const std::string sql = fmt::format("SELECT {} FROM ClientNotification WHERE ScheduleIDNum={};",
                                      summaryColumns, task);
  forEachRow(desk.database(), sql, [&](const Row& row) { visit(readSummary(row)); });
}

void readNotifications(Desk& desk, TaskLine& line) {
  forEachNotification(desk, line.task.id, [&](const Notification& notification) {
    const NotificationState state = stateOf(notification);
    if (state == NotificationState::sent) line.sentChannels |= notification.channel;
    if (state != NotificationState::pending) return;
    line.pendingChannels |= notification.channel;
    if (line.notificationDate.isZero() || notification.date < line.notificationDate)
      line.notificationDate = notification.date;
  });
}

std::size_t count(Desk& desk, const std::string& sql) {
  std::size_t found = 0;
  firstRow(desk.database(), sql,
           [&](const Row& row) { found = static_cast<std::size_t>(row.id("CountOfRows", 0)); });
  return found;
}

}  // namespace

std::vector<TaskLine> readTaskLines(Desk& desk, const TaskQuery& query, std::size_t offset,
                                    std::size_t count) {
  std::vector<TaskLine> lines;
  const std::string sql =
      fmt::format("{} ORDER BY {} LIMIT {} OFFSET {};", selectTasks(desk, taskColumns, query),
                  orderOf(query), count, offset);
  forEachRow(desk.database(), sql,
             [&](const Row& row) { lines.emplace_back().task = readTask(row); });
  for (TaskLine& line : lines) {
    line.client = clientName(desk, line.task);
    readNotifications(desk, line);
  }
  return lines;
}

void forEachTask(Desk& desk, const TaskQuery& query,
                 const std::function<void(const Task& task)>& visit) {
  const std::string sql =
      selectTasks(desk, taskColumns, query) + " ORDER BY " + orderOf(query) + ";";
  forEachRow(desk.database(), sql, [&](const Row& row) { visit(readTask(row)); });
}

Id findPendingNotification(Desk& desk, Id task, notifyType channel) {
  Id found = noId;
  forEachNotification(desk, task, [&](const Notification& notification) {
    if (notification.channel == channel && stateOf(notification) == NotificationState::pending)
      found = notification.id;
  });
  return found;
}

std::size_t countTasks(Desk& desk, const TaskQuery& query) {
  return count(desk, selectTasks(desk, "Count(*) AS CountOfRows", query) + ";");
}

std::string dueCondition(Desk& desk) {
  return fmt::format(
      "ClientNotification.NotificationDate <= #{}# AND ClientNotification.NotificationSent=False",
      desk.database().formatDateForSQL(desk.today()));
}

std::size_t countDueNotifications(Desk& desk) {
  return count(desk, "SELECT Count(*) AS CountOfRows FROM ClientNotification WHERE " +
                         dueCondition(desk) + ";");
}

}  // namespace autonotify::host
