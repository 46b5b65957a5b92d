#include "commands/changing.h"

#include <fmt/format.h>

#include "commands/arguments.h"
#include "notifications.h"

namespace autonotify::console {
namespace {

/// The row, unless it is done with.
Notification loadOpen(Session& session, Id id) {
  const Notification row = loadNotification(session, id);
  const NotificationState state = stateOf(row);
  if (state != NotificationState::pending && state != NotificationState::interruptedCancel) {
    throw Refusal(fmt::format("notification {} is {}", id, stateName(state)));
  }
  return row;
}

template <class Change>
void changeOrRefuse(Session& session, const std::string& subject, Change&& change) {
  const std::string errors = session.errorsOf(change);
  if (!errors.empty()) throw Refusal(fmt::format("{}: {}", subject, errors));
}

Reply describeRow(Session& session, Id id) {
  const Notification row = loadNotification(session, id);
  Reply reply;
  reply.text = fmt::format("notification {} by {}: {}, date {}\n", id, channelName(row.channel),
                           stateName(stateOf(row)), dayText(row.date));
  reply.data = {{"notification", id},
                {"channel", channelName(row.channel)},
                {"state", stateName(stateOf(row))},
                {"date", dayJson(row.date)}};
  return reply;
}

}  // namespace

void describeCancel(CLI::App& command, Arguments& arguments) {
  addNotification(command, arguments);
}

Reply runCancel(Session& session, const Arguments& arguments) {
  const Id id = loadOpen(session, arguments.notifications.front()).id;
  changeOrRefuse(session, fmt::format("notification {}", id),
                 [&] { session.tools().cancelNotification(id); });
  return describeRow(session, id);
}

void describeMove(CLI::App& command, Arguments& arguments) {
  addNotification(command, arguments);
  command
      .add_option_function<std::string>(
          "DATE", [&arguments](const std::string& text) { arguments.date = readDate(text); },
          "the new date, such as 2026-04-30")
      ->required();
}

Reply runMove(Session& session, const Arguments& arguments) {
  const Id id = loadOpen(session, arguments.notifications.front()).id;
  changeOrRefuse(session, fmt::format("notification {}", id), [&] {
    session.control().cls_ChangeNotificationNotifiedDate(id, arguments.date.dateOnly());
  });
  return describeRow(session, id);
}

void describeRefresh(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
}

Reply runRefresh(Session& session, const Arguments& arguments) {
  const Task task = loadTask(session, arguments.task);
  changeOrRefuse(session, fmt::format("task {}", task.id),
                 [&] { session.control().cls_refreshNotificationDate(task.id); });
  Reply reply;
  reply.data = Json::array();
  for (const notifyType channel : allChannels()) {
    const Id id = session.control().cls_getNotificationID(task.id, channel);
    if (id < 0) continue;
    const Reply row = describeRow(session, id);
    reply.text += row.text;
    reply.data.push_back(row.data);
  }
  if (reply.data.empty()) throw Refusal(fmt::format("task {} has no notifications", task.id));
  return reply;
}

}  // namespace autonotify::console
