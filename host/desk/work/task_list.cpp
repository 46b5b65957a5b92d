#include "host/desk/work/task_list.h"

#include <fmt/format.h>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/database/schema/caseless.h"
#include "host/desk/work/due_list.h"

namespace autonotify::host {
namespace {

/// With the names of clients, by which they can be ordered.
constexpr const char* tasksAndClients =
    "((Schedule LEFT JOIN ClientData ON Schedule.ClientNum = ClientData.ClientDataID) "
    "LEFT JOIN Companies ON ClientData.CompanyIDNum = Companies.CompanyID) "
    "LEFT JOIN Contacts ON Schedule.ContactIDNum = Contacts.ContactID";

/// The day of the task's next notification that waits; NULL for none. Of the columns in COALESCE
/// no index is used: by those an engine would go through all that is unsent for each task.
constexpr const char* waitingTerm =
    "(SELECT Min(COALESCE(ClientNotification.NotificationDate, "
    "ClientNotification.NotificationDate)) FROM ClientNotification WHERE "
    "ClientNotification.ScheduleIDNum=Schedule.ScheduleID AND "
    "COALESCE(ClientNotification.NotificationSent, False)=False AND "
    "COALESCE(ClientNotification.NotificationSentStatus, 1) NOT IN (2, 3))";
constexpr const char* sentTerm =
    "(SELECT Count(*) FROM ClientNotification WHERE "
    "ClientNotification.ScheduleIDNum=Schedule.ScheduleID AND "
    "ClientNotification.NotificationSentStatus=2)";

/// What each TaskOrder goes by; the key makes the order complete. What has no date comes last.
std::vector<std::string> orderTerms(TaskOrder order) {
  switch (order) {
    case TaskOrder::client:
      return {"LOWER(COALESCE(Companies.CompanyName, Contacts.DisplayName, ''))"};
    case TaskOrder::name:
      return {"Schedule.scheduleName"};
    case TaskOrder::notificationDate:
      return {fmt::format("CASE WHEN {} IS NULL THEN 1 ELSE 0 END", waitingTerm), waitingTerm};
    case TaskOrder::channels:
      return {"Schedule.notifyType"};
    case TaskOrder::state:
      return {fmt::format("CASE WHEN {} IS NULL THEN CASE WHEN {}>0 THEN 1 ELSE 2 END ELSE 0 END",
                          waitingTerm, sentTerm),
              waitingTerm};
    case TaskOrder::dueDate:
      break;
  }
  return {"Schedule.DueDate"};
}

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

/// Of the column in COALESCE no index is used, for that of the client: by it an engine would go
/// through the open tasks of all.
constexpr const char* isOpenOfClient = "COALESCE(Schedule.Closed, False)=False";

std::string conditionOf(Desk& desk, const TaskQuery& query) {
  std::string condition = query.client || query.contact ? isOpenOfClient : "Schedule.Closed=False";
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
  const char* const direction = query.descending ? " DESC" : "";
  std::string order;
  for (const std::string& term : orderTerms(query.order)) order += term + direction + ", ";
  return order + "Schedule.ScheduleID" + direction;
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

/// While it lives, looking something up does not end the walk through a list.
class SideBySide {
 public:
  explicit SideBySide(Desk& desk) : desk_(desk) { desk_.database().readSideBySide(true); }
  ~SideBySide() { desk_.database().readSideBySide(false); }
  SideBySide(const SideBySide&) = delete;
  SideBySide& operator=(const SideBySide&) = delete;

 private:
  Desk& desk_;
};

/// Tasks whose clients are looked up together: the names of all would cost more memory than a list.
constexpr std::size_t taskBlock = 256;

using NamesById = std::unordered_map<Id, std::string>;

/// Of the tasks' clients by the link, where they have one; `sql` selects key and name.
NamesById readNames(Desk& desk, const std::vector<Task>& tasks, Id Task::*link, const char* sql) {
  std::vector<Id> ids;
  for (const Task& task : tasks)
    if (task.*link >= 0) ids.push_back(task.*link);
  NamesById names;
  if (ids.empty()) return names;
  forEachRow(desk.database(), fmt::format("{} IN ({});", sql, idList(std::move(ids))),
             [&](const Row& row) { names.emplace(row.id("LinkID"), row.text("LinkName")); });
  return names;
}

constexpr const char* companyNamesByClient =
    "SELECT ClientData.ClientDataID AS LinkID, Companies.CompanyName AS LinkName FROM ClientData "
    "INNER JOIN Companies ON ClientData.CompanyIDNum = Companies.CompanyID WHERE "
    "ClientData.ClientDataID";
constexpr const char* contactNames =
    "SELECT Contacts.ContactID AS LinkID, Contacts.DisplayName AS LinkName FROM Contacts WHERE "
    "Contacts.ContactID";

/// Tells the tasks of the block with their clients, and empties it.
void tellBlock(Desk& desk, std::vector<Task>& block, UnreadableRows& unreadable,
               const std::function<void(const Task&, const std::string& client)>& tell) {
  const NamesById companies = readNames(desk, block, &Task::clientNum, companyNamesByClient);
  const NamesById contacts = readNames(desk, block, &Task::contactId, contactNames);
  for (const Task& task : block) {
    const bool isCompany = task.clientNum >= 0;
    const NamesById& names = isCompany ? companies : contacts;
    const auto found = names.find(isCompany ? task.clientNum : task.contactId);
    std::string client = found == names.end() ? std::string() : found->second;
    if (client.empty()) unreadable.orName([&] { client = clientName(desk, task); });
    tell(task, client);
  }
  block.clear();
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

std::optional<TaskLine> findTaskLine(Desk& desk, Id task) {
  const auto found = findTask(desk, task);
  if (!found) return std::nullopt;
  TaskLine line{.task = *found, .client = clientName(desk, *found)};
  UnreadableRows unreadable;
  readNotifications(desk, line, unreadable);
  return line;
}

ReadableRows<Task> readTasks(Desk& desk, const TaskQuery& query) {
  ReadableRows<Task> tasks;
  readRows(desk.database(), taskTable, selectTasks(desk, query) + ";", tasks, readTask);
  std::erase_if(tasks.rows, [&](const Task& task) { return !isWithin(task, query); });
  return tasks;
}

UnreadableRows listTasks(Desk& desk, const TaskQuery& query,
                         const std::function<void(const Task&, const std::string& client)>& tell) {
  UnreadableRows unreadable;
  std::vector<Task> block;
  const SideBySide reading(desk);
  forEachRow(desk.database(), selectTasks(desk, query) + ";", [&](const Row& row) {
    unreadable.orName([&] {
      const Task task = readRow(taskTable, row, readTask);
      if (isWithin(task, query)) block.push_back(task);
    });
    if (block.size() == taskBlock) tellBlock(desk, block, unreadable, tell);
  });
  tellBlock(desk, block, unreadable, tell);
  return unreadable;
}

std::size_t countTasks(Desk& desk, const TaskQuery& query) {
  return countRows(desk.database(), tasksOf(desk, query));
}

}  // namespace autonotify::host
