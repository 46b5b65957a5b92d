#include "host/database/schema/schema_builder.h"

namespace autonotify::host::schema {

namespace {

/// What appointments, tasks and time entries have in common.
Columns diaryItem() {
  Columns result = links({"UserIDNum", "CompanyIDNum", "ContactIDNum"});
  for (const Columns& group : {texts({"Subject"}), dates({"DateFrom", "TimeFrom", "TimeTo"}),
                               memos({"AppointmentText"}), five("Custom")})
    result.insert(result.end(), group.begin(), group.end());
  return result;
}

/// The bit set of channels and the flag of an item that is notified without a schedule entry.
Columns itemNotification() {
  Columns result = smalls({"notifyType"}, "0");
  result.push_back({"ClientNotifiedFlag", ColumnKind::Flag, "0"});
  return result;
}

}  // namespace

std::vector<TableDef> diaryTables() {
  return {
      table("Tasks",
            {key("TaskID"), diaryItem(), links({"ScheduleIDNum", "ProjectStepIDNum"}),
             texts({"TaskStatus"})},
            {{"ScheduleIDNum"}, {"UserIDNum"}, {"CompanyIDNum"}, {"ContactIDNum"}}),
      table("archiveTasks",
            {key("archiveTaskID"), links({"oldTaskID", "ScheduleIDNum"}), texts({"Subject"})},
            {{"ScheduleIDNum"}, {"oldTaskID"}}),
      table("Appointments",
            {key("AppointmentID"), diaryItem(), links({"TaskIDNum"}), itemNotification()},
            {{"UserIDNum"}, {"CompanyIDNum"}, {"ContactIDNum"}, {"DateFrom"}}),
      table("Dockets",
            {key("DocketID"), diaryItem(), itemNotification(),
             links({"FirmIDNum", "InterruptIDNum", "BillingJobCodeIDNum"}), flags({"DocketLocked"}),
             texts({"DocketStatus"}), dates({"DateCreated"}), flags({"Invoiced", "UsedRealTime"}),
             dates({"RealTimeFrom", "RealTimeTo", "RoundedTimeFrom", "RoundedTimeTo"}),
             texts({"DocketBillingType"}), currencies({"BillingJobRate"}), flags({"BillableTime"}),
             doubles({"TotalTimeReal", "TotalTimeRounded"}), flags({"UseAdjustedTime"}),
             doubles({"TotalTimeAdjusted", "TotalTimeFinal"}), currencies({"TotalAmountReal"}),
             flags({"UseAdjustedAmount"}), currencies({"TotalAmountAdjusted", "TotalAmountFinal"}),
             memos({"DescriptionInternal", "DescriptionClient"})},
            {{"UserIDNum"}, {"CompanyIDNum"}, {"ContactIDNum"}, {"DateFrom"}}),
  };
}

}  // namespace autonotify::host::schema
