#include "host/desk/work/explain_date.h"

#include "host/desk/rows/ScheduleKind.h"
#include "host/desk/work/claiming.h"

namespace autonotify::host {

Outcome<ExplainedDate> explainDate(Desk& desk, Id task) {
  const auto found = requireTask(desk, task);
  if (!found) return found.refused();
  auto why = askComponent(desk, subjectOf(WorkItem::task, task),
                          [&] { return desk.tools().explainNotificationDate(task); });
  if (!why) return why.refused();
  return ExplainedDate{*found, clientName(desk, *found),
                       scheduleKindName(desk, why->totalNum, why->scheduleNum), *std::move(why)};
}

}  // namespace autonotify::host
