#include "host/desk/work/calendar.h"

namespace autonotify::host {

Outcome<DateTime> lastWorkingDay(Desk& desk, DateTime day) {
  return askComponent(desk, "the calendar", [&] { return desk.tools().lastWorkingDay(day); });
}

}  // namespace autonotify::host
