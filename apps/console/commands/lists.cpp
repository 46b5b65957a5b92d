#include "commands/lists.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "TextTable.h"
#include "commands/arguments.h"
#include "notifications.h"
#include "rows.h"

namespace autonotify::console {
namespace {

std::string taskStatement(Session& session, const Arguments& arguments) {
  std::string sql =
      "SELECT Schedule.ScheduleID, Schedule.ClientNum, Schedule.ContactIDNum, "
      "Schedule.scheduleName, Schedule.DueDate, Schedule.notifyType FROM Schedule "
      "WHERE Schedule.Closed=False ";
  if (arguments.client) sql += fmt::format("AND Schedule.ClientNum={} ", *arguments.client);
  if (arguments.contact) sql += fmt::format("AND Schedule.ContactIDNum={} ", *arguments.contact);
  if (arguments.until) {
    sql += fmt::format("AND Schedule.DueDate <= #{}# ",
                       session.database().formatDateForSQL(arguments.until->dateOnly()));
  }
  return sql + "ORDER BY Schedule.DueDate, Schedule.ScheduleID;";
}

Task readTask(const Row& row) {
  return {row.id("ScheduleID"),
          row.id("ClientNum"),
          row.id("ContactIDNum"),
          row.text("scheduleName"),
          row.date("DueDate"),
          row.id("notifyType", 0),
          false};
}

/// While it lives the client lookup keeps whole tables.
class LookupBatch {
 public:
  explicit LookupBatch(Session& session) : session_(session) {
    session_.clients().setClientLookupBatch(true);
  }
  ~LookupBatch() { session_.clients().setClientLookupBatch(false); }
  LookupBatch(const LookupBatch&) = delete;
  LookupBatch& operator=(const LookupBatch&) = delete;

 private:
  Session& session_;
};

std::vector<Id> selectIds(Session& session, const std::string& condition) {
  std::vector<Id> ids;
  forEachRow(session.database(),
             "SELECT ClientNotification.ClientNotificationID, ClientNotification.NotificationDate "
             "FROM ClientNotification " +
                 condition +
                 "ORDER BY ClientNotification.NotificationDate, "
                 "ClientNotification.ClientNotificationID;",
             [&](const Row& row) { ids.push_back(row.id("ClientNotificationID")); });
  return ids;
}

std::vector<Id> dueNotifications(Session& session) {
  return selectIds(session, fmt::format("WHERE ClientNotification.NotificationDate <= #{}# "
                                        "AND ClientNotification.NotificationSent=False ",
                                        session.database().formatDateForSQL(session.today())));
}

}  // namespace

void describeTasks(CLI::App& command, Arguments& arguments) {
  command.add_option("--client", arguments.client, "only tasks of this business client");
  command.add_option("--contact", arguments.contact, "only tasks of this personal client");
  addDateOption(command, "--until", arguments.until, "only tasks due on this date or before");
}

Reply runTasks(Session& session, const Arguments& arguments) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"TASK", "DUE", "CHANNELS", "CLIENT", "NAME"});
  const LookupBatch batch(session);
  forEachRow(session.database(), taskStatement(session, arguments), [&](const Row& row) {
    const Task task = readTask(row);
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
  });
  if (reply.data.empty()) {
    reply.exitCode = exitRefused;
    reply.complaints.push_back("no open task found");
    return reply;
  }
  reply.text = table.toText();
  return reply;
}

std::vector<Id> notificationsToSend(Session& session) {
  std::vector<Id> ids =
      selectIds(session, fmt::format("WHERE ClientNotification.NotificationSent=True "
                                     "AND ClientNotification.NotificationSentStatus={} ",
                                     static_cast<int>(enumNotificationSendStatus_NotSent)));
  const std::vector<Id> due = dueNotifications(session);
  ids.insert(ids.end(), due.begin(), due.end());
  return ids;
}

void describeDue(CLI::App&, Arguments&) {}

Reply runDue(Session& session, const Arguments&) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"NOTIFICATION", "DATE", "CHANNEL", "CLIENT", "TASK"});
  const LookupBatch batch(session);
  for (const Id id : dueNotifications(session)) {
    const std::optional<Notification> row = findNotification(session, id);
    if (!row) continue;
    const std::string client = clientName(session, *row);
    const std::string item = itemName(session, *row);
    table.add({std::to_string(id), dayText(row->date), channelName(row->channel), client, item});
    reply.data.push_back({{"notification", id},
                          {"date", dayJson(row->date)},
                          {"channel", channelName(row->channel)},
                          {"client", client},
                          {"task", row->scheduleId},
                          {"name", item}});
  }
  reply.text = reply.data.empty() ? "Nothing is due.\n" : table.toText();
  return reply;
}

}  // namespace autonotify::console
