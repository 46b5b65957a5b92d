#pragma once

#include <array>

#include "control/clsFrmSentNotifyBulk.h"

namespace autonotify::host {

/// A kind of task that a client's year is made of: its name on a command line, and the flag that
/// chooses it.
struct TaskFamily {
  const char* word;
  Id totalNum;
  void (clsFrmSentNotifyBulk::*choose)(bool);
};
inline constexpr std::array<TaskFamily, 14> taskFamilies{{
    {"gst", 101, &clsFrmSentNotifyBulk::put_scheduleGST},
    {"pst", 102, &clsFrmSentNotifyBulk::put_schedulePST},
    {"payroll-remittance", 103, &clsFrmSentNotifyBulk::put_schedulePayrollRemitt},
    {"year-end", 104, &clsFrmSentNotifyBulk::put_scheduleYearEnd},
    {"corporate-tax", 105, &clsFrmSentNotifyBulk::put_scheduleCorpTax},
    {"wsib", 106, &clsFrmSentNotifyBulk::put_scheduleWSIB},
    {"eht", 107, &clsFrmSentNotifyBulk::put_scheduleEHT},
    {"law", 108, &clsFrmSentNotifyBulk::put_scheduleLaw},
    {"other", 109, &clsFrmSentNotifyBulk::put_scheduleOther},
    {"payroll", 110, &clsFrmSentNotifyBulk::put_scheduleEmployeePayroll},
    {"custom", 111, &clsFrmSentNotifyBulk::put_scheduleCustom},
    {"federal-payroll", 112, &clsFrmSentNotifyBulk::put_scheduleFederalPayroll},
    {"projects", 113, &clsFrmSentNotifyBulk::put_scheduleProjects},
    {"bookkeeping", 114, &clsFrmSentNotifyBulk::put_scheduleBookkeeping},
}};

}  // namespace autonotify::host
