#include "commands/arming.h"

#include <fmt/format.h>

#include <array>

#include "commands/arguments.h"
#include "notifications.h"

namespace autonotify::console {
namespace {

struct AddOperation {
  notifyType channel;
  Id (clsAutoNotifyCtrl::*add)(Id);
};
constexpr std::array<AddOperation, 4> addOperations{{
    {nt_Email, &clsAutoNotifyCtrl::cls_addNewEmailNotificationFromScheduleIDNum},
    {nt_Fax, &clsAutoNotifyCtrl::cls_addNewFaxNotificationFromScheduleIDNum},
    {nt_Letter, &clsAutoNotifyCtrl::cls_addNewLetterNotificationFromScheduleIDNum},
    {nt_Phone, &clsAutoNotifyCtrl::cls_addNewPhoneNotificationFromScheduleIDNum},
}};

/// What became of one channel.
struct Outcome {
  Id notification = noId;
  std::string result;
  /// Why nothing was done; empty when all is well.
  std::string refusal;
};

Id addRow(Session& session, notifyType channel, Id task) {
  for (const AddOperation& operation : addOperations) {
    if (operation.channel == channel) return (session.control().*operation.add)(task);
  }
  return noId;
}

/// Adds the row and sets the bit. A row during whose making an error was met is taken back: it may
/// lack its text or its recipient.
Outcome armAnew(Session& session, const Task& task, notifyType channel) {
  Outcome outcome;
  outcome.refusal =
      session.errorsOf([&] { outcome.notification = addRow(session, channel, task.id); });
  if (outcome.refusal.empty() && outcome.notification < 0) outcome.refusal = "nothing was added";
  if (!outcome.refusal.empty()) {
    if (outcome.notification >= 0) session.control().cls_deleteNotification(outcome.notification);
    outcome.notification = noId;
    return outcome;
  }
  session.control().cls_changeNotificationStatus(channel, nt_AddStatus, task.id);
  outcome.result = "armed";
  return outcome;
}

Outcome armChannel(Session& session, const Task& task, notifyType channel) {
  const Id existing = session.control().cls_getNotificationID(task.id, channel);
  if (existing < 0) return armAnew(session, task, channel);
  const NotificationState state = stateOf(loadNotification(session, existing));
  if (state != NotificationState::pending) {
    return {existing,
            {},
            fmt::format("notification {} of this channel is {}; disarm it first", existing,
                        stateName(state))};
  }
  if (task.channels & channel) return {existing, "already armed", {}};
  session.control().cls_changeNotificationStatus(channel, nt_AddStatus, task.id);
  return {existing, "armed", {}};
}

Outcome disarmChannel(Session& session, const Task& task, notifyType channel, bool force) {
  const Id existing = session.control().cls_getNotificationID(task.id, channel);
  if (existing < 0 && !(task.channels & channel)) return {noId, {}, "not armed"};
  if (existing >= 0) {
    const NotificationState state = stateOf(loadNotification(session, existing));
    const bool wasSent =
        state == NotificationState::sent || state == NotificationState::interruptedSending;
    if (wasSent && !force) {
      return {existing,
              {},
              fmt::format("notification {} was sent; --force deletes its record", existing)};
    }
    session.control().cls_deleteNotification(existing);
  }
  session.control().cls_changeNotificationStatus(channel, nt_RemoveStatus, task.id);
  return {existing, "disarmed", {}};
}

/// Runs `change` for each channel asked for and tells what became of it.
template <class Change>
Reply forEachChannel(Session& session, const Arguments& arguments, Change&& change) {
  Reply reply;
  reply.data = Json::array();
  for (const notifyType channel : arguments.channels) {
    const Task task = loadTask(session, arguments.task);
    const Outcome outcome = change(task, channel);
    if (!outcome.refusal.empty()) {
      reply.exitCode = exitRefused;
      reply.complaints.push_back(
          fmt::format("task {}, {}: {}", task.id, channelName(channel), outcome.refusal));
      continue;
    }
    const auto row = findNotification(session, outcome.notification);
    const std::string date = row ? dayText(row->date) : "-";
    reply.text += fmt::format("{:<7} {}", channelName(channel), outcome.result);
    if (row) reply.text += fmt::format(": notification {}, to be sent {}", row->id, date);
    reply.text += "\n";
    reply.data.push_back({{"task", task.id},
                          {"channel", channelName(channel)},
                          {"result", outcome.result},
                          {"notification", outcome.notification},
                          {"date", row ? dayJson(row->date) : Json()}});
  }
  return reply;
}

}  // namespace

void describeArm(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
  addChannels(command, arguments);
}

Reply runArm(Session& session, const Arguments& arguments) {
  return forEachChannel(session, arguments, [&](const Task& task, notifyType channel) {
    return armChannel(session, task, channel);
  });
}

void describeDisarm(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
  addChannels(command, arguments);
  command.add_flag("--force", arguments.force, "also delete the record of a sent notification");
}

Reply runDisarm(Session& session, const Arguments& arguments) {
  return forEachChannel(session, arguments, [&](const Task& task, notifyType channel) {
    return disarmChannel(session, task, channel, arguments.force);
  });
}

}  // namespace autonotify::console
