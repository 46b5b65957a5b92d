#pragma once

#include <optional>
#include <string>

#include "host/desk/Desk.h"

namespace autonotify::host {

class Row;

/// A schedule entry, as lists name it.
struct Task {
  Id id = noId;
  Id clientNum = noId;
  Id contactId = noId;
  std::string name;
  DateTime dueDate;
  int channels = 0;
  bool closed = false;
};

extern const char* const taskTable;
/// The columns that readTask wants, for a SELECT.
extern const char* const taskColumns;
Task readTask(const Row& row);
/// Throws UnreadableRow.
std::optional<Task> findTask(Desk& desk, Id id);
/// The company that the task is for; noId when its client is a contact.
Id companyOf(Desk& desk, const Task& task);
/// The company's or the contact's name; empty when it has neither.
std::string clientName(Desk& desk, const Task& task);

}  // namespace autonotify::host
