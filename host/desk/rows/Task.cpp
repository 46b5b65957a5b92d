#include "host/desk/rows/Task.h"

#include <fmt/format.h>

#include "host/desk/rows/client_names.h"
#include "host/desk/rows/readable_rows.h"

namespace autonotify::host {

const char* const taskTable = "Schedule";
const char* const taskColumns =
    "Schedule.ScheduleID, Schedule.ClientNum, Schedule.ContactIDNum, Schedule.scheduleName, "
    "Schedule.DueDate, Schedule.notifyType, Schedule.Closed";

Task readTask(const Row& row) {
  return {row.id("ScheduleID"),     row.id("ClientNum"), row.id("ContactIDNum"),
          row.text("scheduleName"), row.date("DueDate"), row.id("notifyType", 0),
          row.flag("Closed")};
}

std::optional<Task> findTask(Desk& desk, Id id) {
  if (id < 0) return std::nullopt;
  return findRow(desk.database(), taskTable,
                 fmt::format("SELECT {} FROM Schedule WHERE ScheduleID={};", taskColumns, id),
                 readTask);
}

Id companyOf(Desk& desk, const Task& task) {
  return task.clientNum >= 0 ? desk.clients().getCompanyIDFromClientID(task.clientNum) : noId;
}

std::string clientName(Desk& desk, const Task& task) {
  return clientName(desk, companyOf(desk, task), task.contactId);
}

}  // namespace autonotify::host
