#include "host/desk/work/edit_templates.h"

#include <fmt/format.h>

#include "host/clients/record_rows.h"
#include "host/desk/work/claiming.h"

namespace autonotify::host {

std::optional<Refused> editTemplates(Desk& desk, Id task) {
  const auto claim = claimTemplates(desk);
  if (!claim) return claim.refused();
  Id totalNum = noId;
  Id scheduleNum = noId;
  if (task >= 0) {
    firstRow(desk.database(),
             fmt::format("SELECT Schedule.totalNum, Schedule.scheduleNum FROM Schedule WHERE "
                         "Schedule.ScheduleID={};",
                         task),
             [&](const Row& row) {
               totalNum = row.id("totalNum");
               scheduleNum = row.id("scheduleNum");
             });
  }
  return tellComponent(desk, "templates", [&] {
    desk.control().cls_openTaskAutoNotificationForm_WithTotalNumAndScheduleNum(totalNum,
                                                                               scheduleNum);
  });
}

}  // namespace autonotify::host
