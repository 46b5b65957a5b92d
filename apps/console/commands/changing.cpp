#include "commands/changing.h"

#include <fmt/format.h>

#include "commands/arguments.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/Task.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/calendar.h"
#include "host/desk/work/change_notification.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

using host::Notification;

/// The row after the change, which is called "moved". Throws Refusal when nothing was changed.
Notification changedRow(host::Outcome<host::Change> outcome, const char* changed) {
  const host::Change change = doneOrRefuse(std::move(outcome));
  if (change.isDone) return change.row;
  const host::NotificationState state = stateOf(change.row);
  const bool isSoAlready = stateName(state) == changed;
  throw Refusal(isSoAlready ? fmt::format("notification {} is {} already", change.row.id, changed)
                            : fmt::format("notification {} {} and cannot be {}", change.row.id,
                                          stateWords(state), changed));
}

/// ", which is after the due date, 2026-04-30" where it is; one that is past is told of as such.
std::string lateNote(host::Desk& desk, const Notification& row) {
  const auto task = host::findTask(desk, row.scheduleId);
  const bool isLate = task && !task->dueDate.isZero() && row.date > task->dueDate;
  if (!isLate || host::isOverdue(desk, row)) return {};
  return ", which is after the due date, " + host::dayText(task->dueDate);
}

}  // namespace

void describeCancel(CLI::App& command, Arguments& arguments) {
  addNotification(command, arguments);
}

Reply runCancel(host::Desk& desk, const Arguments& arguments) {
  return rowReply(desk,
                  changedRow(host::cancelNotification(desk, arguments.notification), "cancelled"));
}

void describeMove(CLI::App& command, Arguments& arguments) {
  addNotification(command, arguments);
  addDate(command, "DATE", "the new date, such as 2026-04-30", arguments.date)->required();
}

Reply runMove(host::Desk& desk, const Arguments& arguments) {
  const DateTime date = *arguments.date;
  const Notification row =
      changedRow(host::moveNotification(desk, arguments.notification, date), "moved");
  const bool isOpen = doneOrRefuse(host::lastWorkingDay(desk, date)) == date;
  return rowReply(desk, row, lateNote(desk, row) + (isOpen ? "" : "; the firm is closed that day"));
}

void describeRefresh(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
}

Reply runRefresh(host::Desk& desk, const Arguments& arguments) {
  Reply reply;
  reply.data = Json::array();
  for (const auto& [row, formerDate] :
       doneOrRefuse(host::refreshNotifications(desk, arguments.task))) {
    const std::string former = host::dayText(formerDate);
    Reply described =
        rowReply(desk, row, formerDate == row.date ? "" : "; it was " + former + " until now");
    described.data["formerDate"] = dayJson(formerDate);
    reply.text += described.text;
    reply.data.push_back(described.data);
  }
  if (reply.data.empty())
    throw Refusal(fmt::format("task {} has no notifications", arguments.task));
  return reply;
}

}  // namespace autonotify::console
