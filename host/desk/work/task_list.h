#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "host/desk/rows/Task.h"
#include "host/desk/rows/readable_rows.h"

namespace autonotify::host {

/// An open task as staff see it in a list.
struct TaskLine {
  Task task;
  std::string client = {};
  /// The day of its next notification that waits; the zero date when none does.
  DateTime notificationDate = {};
  /// The channels of the notifications that wait, and of those that were sent.
  int pendingChannels = 0;
  int sentChannels = 0;
};

/// Where a task's notifications stand: some wait (with the next one's day ahead, or come), some
/// were sent, or there are none.
enum class TaskState { none, waiting, due, sent };
TaskState stateOf(const TaskLine& line, DateTime today);

/// By state: what is due, then what is scheduled, what was sent, and the others.
enum class TaskOrder { dueDate, client, name, notificationDate, channels, state };

/// Which open tasks, in which order.
struct TaskQuery {
  /// Part of the client's or the task's name; capitals don't matter in the letters A to Z. Empty:
  /// all.
  std::string filter = {};
  std::optional<Id> client = std::nullopt;
  std::optional<Id> contact = std::nullopt;
  /// Due on this day or before.
  std::optional<DateTime> until = std::nullopt;
  /// Only those with a notification that is to be sent today.
  bool isToNotify = false;
  TaskOrder order = TaskOrder::dueDate;
  bool descending = false;
};

struct TaskLines : ReadableRows<TaskLine> {
  /// How many tasks the list went through, whether they could be read or not.
  std::size_t passed = 0;
};

/// The open tasks from `offset` on, `count` at most. What is read is what is given: the time for
/// the first ones by due date does not grow with the number of tasks. Throws DatabaseError.
TaskLines readTaskLines(Desk& desk, const TaskQuery& query, std::size_t offset, std::size_t count);

/// One task, open or not. Throws UnreadableRow.
std::optional<TaskLine> findTaskLine(Desk& desk, Id task);

/// All of them, without their clients and notifications.
ReadableRows<Task> readTasks(Desk& desk, const TaskQuery& query);

/// Calls `tell` for each of them with its client's name, reading as it goes: their number costs no
/// memory. Gives the rows that were passed over. Throws DatabaseError.
UnreadableRows listTasks(Desk& desk, const TaskQuery& query,
                         const std::function<void(const Task&, const std::string& client)>& tell);

/// How many open tasks the query has.
std::size_t countTasks(Desk& desk, const TaskQuery& query);

}  // namespace autonotify::host
