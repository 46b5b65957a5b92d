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
  bool (clsFrmSentNotifyBulk::*isChosen)();
};
inline constexpr std::array<TaskFamily, 14> taskFamilies{{
    {"gst", 101, &clsFrmSentNotifyBulk::put_scheduleGST, &clsFrmSentNotifyBulk::get_scheduleGST},
    {"pst", 102, &clsFrmSentNotifyBulk::put_schedulePST, &clsFrmSentNotifyBulk::get_schedulePST},
    {"payroll-remittance", 103, &clsFrmSentNotifyBulk::put_schedulePayrollRemitt,
     &clsFrmSentNotifyBulk::get_schedulePayrollRemitt},
    {"year-end", 104, &clsFrmSentNotifyBulk::put_scheduleYearEnd,
     &clsFrmSentNotifyBulk::get_scheduleYearEnd},
    {"corporate-tax", 105, &clsFrmSentNotifyBulk::put_scheduleCorpTax,
     &clsFrmSentNotifyBulk::get_scheduleCorpTax},
    {"wsib", 106, &clsFrmSentNotifyBulk::put_scheduleWSIB, &clsFrmSentNotifyBulk::get_scheduleWSIB},
    {"eht", 107, &clsFrmSentNotifyBulk::put_scheduleEHT, &clsFrmSentNotifyBulk::get_scheduleEHT},
    {"law", 108, &clsFrmSentNotifyBulk::put_scheduleLaw, &clsFrmSentNotifyBulk::get_scheduleLaw},
    {"other", 109, &clsFrmSentNotifyBulk::put_scheduleOther,
     &clsFrmSentNotifyBulk::get_scheduleOther},
    {"payroll", 110, &clsFrmSentNotifyBulk::put_scheduleEmployeePayroll,
     &clsFrmSentNotifyBulk::get_scheduleEmployeePayroll},
    {"custom", 111, &clsFrmSentNotifyBulk::put_scheduleCustom,
     &clsFrmSentNotifyBulk::get_scheduleCustom},
    {"federal-payroll", 112, &clsFrmSentNotifyBulk::put_scheduleFederalPayroll,
     &clsFrmSentNotifyBulk::get_scheduleFederalPayroll},
    {"projects", 113, &clsFrmSentNotifyBulk::put_scheduleProjects,
     &clsFrmSentNotifyBulk::get_scheduleProjects},
    {"bookkeeping", 114, &clsFrmSentNotifyBulk::put_scheduleBookkeeping,
     &clsFrmSentNotifyBulk::get_scheduleBookkeeping},
}};

}  // namespace autonotify::host
