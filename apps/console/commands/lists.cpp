#include "commands/lists.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "TextTable.h"
#include "commands/arguments.h"
#include "host/desk/task_list.h"
#include "notifications.h"

namespace autonotify::console {
namespace {

/// The rows that meet `condition`, by date. They are read to the end before anything is looked up
/// for them: a server is asked anew for each row that was left while something else was read.
std::vector<Notification> listNotifications(Session& session, const std::string& condition) {
  const std::string sql = fmt::format(
      "SELECT {} FROM ClientNotification WHERE {} ORDER BY ClientNotification.NotificationDate, "
      "ClientNotification.ClientNotificationID;",
      summaryColumns, condition);
  std::vector<Notification> rows;
  forEachRow(session.database(), sql, [&](const Row& row) { rows.push_back(readSummary(row)); });
  return rows;
}

/// Read to the end, for the same reason.
std::vector<Task> listTasks(Session& session, const host::TaskQuery& query) {
  std::vector<Task> tasks;
  host::forEachTask(session, query, [&](const Task& task) { tasks.push_back(task); });
  return tasks;
}

std::string isInterrupted() {
  return fmt::format(
      "ClientNotification.NotificationSent=True AND ClientNotification.NotificationSentStatus={}",
      static_cast<int>(enumNotificationSendStatus_NotSent));
}

}  // namespace

void describeTasks(CLI::App& command, Arguments& arguments) {
  addNumber(command, "--client", "only tasks of this business client", arguments.client);
  addNumber(command, "--contact", "only tasks of this personal client", arguments.contact);
  addDate(command, "--until", "only tasks due on this date or before", arguments.until);
}

Reply runTasks(Session& session, const Arguments& arguments) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"TASK", "DUE", "CHANNELS", "CLIENT", "NAME"});
  const LookupBatch batch(session);
  host::TaskQuery query;
  query.client = arguments.client;
  query.contact = arguments.contact;
  query.until = arguments.until;
  for (const Task& task : listTasks(session, query)) {
    const std::string client = clientName(session, task);
    table.add({std::to_string(task.id), dayText(task.dueDate), channelNames(task.channels), client,
               task.name});
    reply.data.push_back({{"task", task.id},
                          {"due", dayJson(task.dueDate)},
                          {"channels", channelList(task.channels)},
                          {"client", client},
                          {"clientId", task.clientNum},
                          {"contactId", task.contactId},
                          {"name", task.name}});
  }
  if (reply.data.empty()) {
    reply.exitCode = exitRefused;
    reply.complaints.push_back("no open task found");
    return reply;
  }
  reply.text = table.toText();
  return reply;
}

std::vector<Id> notificationsToSend(Session& session) {
  std::vector<Id> ids;
  for (const std::string& condition : {isInterrupted(), host::dueCondition(session)})
    for (const Notification& row : listNotifications(session, condition)) ids.push_back(row.id);
  return ids;
}

void describeDue(CLI::App&, Arguments&) {}

Reply runDue(Session& session, const Arguments&) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"NOTIFICATION", "DATE", "CHANNEL", "CLIENT", "TASK"});
  const LookupBatch batch(session);
  for (const Notification& row : listNotifications(session, host::dueCondition(session))) {
    const std::string client = clientName(session, row);
    const std::string item = itemName(session, row);
    table.add({std::to_string(row.id), dayText(row.date), channelName(row.channel), client, item});
    reply.data.push_back({{"notification", row.id},
                          {"date", dayJson(row.date)},
                          {"channel", channelName(row.channel)},
                          {"client", client},
                          {"task", row.scheduleId},
                          {"name", item}});
  }
  reply.text = table.isEmpty() ? "Nothing is due.\n" : table.toText();
  return reply;
}

}  // namespace autonotify::console
