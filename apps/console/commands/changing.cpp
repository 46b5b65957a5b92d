#include "commands/changing.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>

#include "commands/arguments.h"
#include "notifications.h"

namespace autonotify::console {
namespace {

/// Throws Refusal unless the row is in one of the states that may be changed so.
void requireState(Session& session, Id id, std::initializer_list<NotificationState> allowed,
                  const char* changed) {
  const NotificationState state = stateOf(loadNotification(session, id));
  if (std::find(allowed.begin(), allowed.end(), state) != allowed.end()) return;
  const bool isSoAlready = stateName(state) == changed;
  throw Refusal(isSoAlready ? fmt::format("notification {} is {} already", id, changed)
                            : fmt::format("notification {} {} and cannot be {}", id,
                                          stateWords(state), changed));
}

/// "; the firm is closed that day" where it is.
std::string closedNote(Session& session, DateTime date) {
  DateTime open = date;
  session.callOrRefuse("the calendar", [&] { open = session.tools().lastWorkingDay(date); });
  return open == date ? "" : "; the firm is closed that day";
}

Reply describeRow(Session& session, Id id, const std::string& note = {}) {
  const Notification row = loadNotification(session, id);
  Reply reply;
  reply.text =
      fmt::format("notification {} by {}: {}, date {}{}{}\n", id, channelName(row.channel),
                  stateName(stateOf(row)), dayText(row.date), pastNote(session, row), note);
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
  const Id id = arguments.notification;
  const auto claim = claimNotification(session, id);
  requireState(session, id,
               {NotificationState::pending, NotificationState::interruptedCancel,
                NotificationState::interruptedSending},
               "cancelled");
  session.callOrRefuse(fmt::format("notification {}", id),
                       [&] { session.tools().cancelNotification(id); });
  return describeRow(session, id);
}

void describeMove(CLI::App& command, Arguments& arguments) {
  addNotification(command, arguments);
  addDate(command, "DATE", "the new date, such as 2026-04-30", arguments.date)->required();
}

Reply runMove(Session& session, const Arguments& arguments) {
  const Id id = arguments.notification;
  const auto claim = claimNotification(session, id);
  requireState(session, id, {NotificationState::pending}, "moved");
  session.callOrRefuse(fmt::format("notification {}", id), [&] {
    session.control().cls_ChangeNotificationNotifiedDate(id, *arguments.date);
  });
  return describeRow(session, id, closedNote(session, *arguments.date));
}

void describeRefresh(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
}

Reply runRefresh(Session& session, const Arguments& arguments) {
  const auto claim = claimItem(session, host::WorkItem::task, arguments.task);
  const Task task = loadTask(session, arguments.task);
  session.callOrRefuse(fmt::format("task {}", task.id),
                       [&] { session.control().cls_refreshNotificationDate(task.id); });
  Reply reply;
  reply.data = Json::array();
  for (const notifyType channel : allNotifyTypes) {
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
