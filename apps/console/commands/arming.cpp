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

Outcome refused(Id notification, std::string why) {
  return {notification, {}, std::move(why)};
}

Id addRow(Session& session, notifyType channel, Id task) {
  for (const AddOperation& operation : addOperations) {
    if (operation.channel == channel) return (session.control().*operation.add)(task);
  }
  return noId;
}

/// The outcome with `result`, once the task's bit says the same.
Outcome setBit(Session& session, Id notification, notifyType channel, changeStatus change, Id task,
               const char* result) {
  bool done = false;
  const std::string errors = session.errorsOf(
      [&] { done = session.control().cls_changeNotificationStatus(channel, change, task); });
  if (!errors.empty()) return refused(notification, errors);
  if (!done) return refused(notification, "the task could not be marked");
  return {notification, result, {}};
}

/// Adds the row and sets the bit. A row during whose making an error was met is taken back: it may
/// lack its text or its recipient. So is one that another program was quicker to make.
Outcome armAnew(Session& session, const Task& task, notifyType channel) {
  Id added = noId;
  const std::string errors = session.errorsOf([&] { added = addRow(session, channel, task.id); });
  if (added < 0) return refused(noId, errors.empty() ? "nothing was added" : errors);
  const Id first = session.control().cls_getNotificationID(task.id, channel);
  if (!errors.empty() || first != added) session.control().cls_deleteNotification(added);
  if (!errors.empty()) return refused(noId, errors);
  return setBit(session, first, channel, nt_AddStatus, task.id,
                first == added ? "armed" : "already armed");
}

Outcome armChannel(Session& session, const Task& task, notifyType channel) {
  const Id existing = session.control().cls_getNotificationID(task.id, channel);
  if (existing < 0) return armAnew(session, task, channel);
  const NotificationState state = stateOf(loadNotification(session, existing));
  if (state != NotificationState::pending) {
    return refused(existing, fmt::format("notification {} of this channel {}; disarm it first",
                                         existing, stateWords(state)));
  }
  const bool isMarked = (task.channels & channel) != 0;
  return setBit(session, existing, channel, nt_AddStatus, task.id,
                isMarked ? "already armed" : "armed");
}

Outcome disarmChannel(Session& session, const Task& task, notifyType channel, bool force) {
  const Id existing = session.control().cls_getNotificationID(task.id, channel);
  if (existing < 0 && !(task.channels & channel)) return refused(noId, "not armed");
  if (existing >= 0) {
    const auto claim = claimItem(session, host::WorkItem::notification, existing);
    const NotificationState state = stateOf(loadNotification(session, existing));
    const bool mayBeSent =
        state == NotificationState::sent || state == NotificationState::interruptedSending;
    if (mayBeSent && !force) {
      return refused(existing, fmt::format("notification {} {}; --force deletes its record",
                                           existing, stateWords(state)));
    }
    const std::string errors =
        session.errorsOf([&] { session.control().cls_deleteNotification(existing); });
    if (!errors.empty()) return refused(existing, errors);
  }
  return setBit(session, existing, channel, nt_RemoveStatus, task.id, "disarmed");
}

/// The field without which a channel cannot reach anyone.
struct AddressField {
  notifyType channel;
  int field;
  const char* words;
};
constexpr std::array<AddressField, 3> addressFields{{
    {nt_Email, 0, "an email address"},
    {nt_Fax, 3, "a fax number"},
    {nt_Phone, 1, "a telephone number"},
}};

/// What the row still lacks: "an email address"; empty for nothing.
std::string missingAddress(const Notification& row) {
  for (const AddressField& each : addressFields) {
    if (each.channel == row.channel && row.fields[each.field].empty()) return each.words;
  }
  return {};
}

void report(Reply& reply, Session& session, const Task& task, notifyType channel,
            const Outcome& outcome) {
  const auto row = findNotification(session, outcome.notification);
  reply.text += fmt::format("{:<7} {}", channelName(channel), outcome.result);
  Json data{{"task", task.id},
            {"channel", channelName(channel)},
            {"result", outcome.result},
            {"notification", outcome.notification},
            {"date", row ? dayJson(row->date) : Json()}};
  if (row) {
    const std::string missing = missingAddress(*row);
    reply.text +=
        fmt::format(": notification {}, to be sent {}{}{}", row->id, dayText(row->date),
                    pastNote(session, *row), missing.empty() ? "" : "; it lacks " + missing);
    data["past"] = isOverdue(session, *row);
    data["lacks"] = missing;
  }
  reply.text += "\n";
  reply.data.push_back(std::move(data));
}

/// Runs `change` for each channel asked for and tells what became of it.
template <class Change>
Reply forEachChannel(Session& session, const Arguments& arguments, Change&& change) {
  Reply reply;
  reply.data = Json::array();
  const auto claim = claimItem(session, host::WorkItem::task, arguments.task);
  for (const notifyType channel : arguments.channels) {
    const Task task = loadTask(session, arguments.task);
    const Outcome outcome = change(task, channel);
    if (!outcome.refusal.empty()) {
      reply.exitCode = exitRefused;
      reply.complaints.push_back(
          fmt::format("task {}, {}: {}", task.id, channelName(channel), outcome.refusal));
      continue;
    }
    report(reply, session, task, channel, outcome);
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
