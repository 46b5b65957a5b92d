#include "host/database/schema/schema_builder.h"

namespace autonotify::host::schema {

std::vector<TableDef> scheduleTables() {
  return {
      table("Schedule",
            {key("ScheduleID"),
             links({"ClientNum", "ContactIDNum"}),
             integers({"totalNum", "scheduleNum"}),
             texts({"scheduleName"}),
             dates({"DueDate", "inHouseDueDate"}),
             texts({"EmployeeAssigned"}),
             smalls({"notifyType"}, "0"),
             dates({"ScheduleModifiedStamp"}),
             flags({"Closed", "OverdueFlag"}),
             integers({"Year"}),
             dates({"PeriodEndDate"}),
             texts({"PeriodDescription"}),
             dates({"CalendarDate"}),
             flags({"ReceivedAllDocs"}),
             dates({"ReceivedDocsDate"}),
             texts({"FileLocation"}),
             dates({"InfoDeadlineDate"}),
             currencies({"Amount"}),
             texts({"PersonCompleted"}),
             dates({"DateCompleted"}),
             integers({"NumDaysInProgress"}),
             doubles({"EstimatedTime"}),
             flags({"PortalAllowClientToSeeTaskFlag"}),
             five("Custom")},
            {{"ClientNum", "Year", "totalNum"},
             {"ContactIDNum", "Year", "totalNum"},
             {"totalNum", "scheduleNum"},
             {"EmployeeAssigned"},
             {"DueDate"},
             {"Closed", "DueDate"},
             {"ClientNum", "Closed", "DueDate"},
             {"Closed", "scheduleName"}}),
      table("archiveSchedule",
            {key("archiveScheduleID"), links({"oldScheduleID", "ClientNum", "ContactIDNum"}),
             integers({"totalNum", "scheduleNum"}), texts({"scheduleName"}), dates({"DueDate"}),
             flags({"Closed"}, "1"), flags({"OverdueFlag"}), integers({"Year"})},
            {{"oldScheduleID"}, {"ClientNum"}, {"ContactIDNum"}}),
      // The pair (family, -1) is the row of the family itself; (101, 10) is the fallback kind.
      table(
          "ScheduleTypes",
          {key("ScheduleTypeID"), smalls({"ScheduleTypeNum"}, "-1"),
           integers({"TotalNum", "ScheduleNum"}), texts({"ScheduleTypeName", "ShortAbbreviation"}),
           memos({"NotificationComment"}), smalls({"NotificationPeriod"}, "15"), flags({"Locked"}),
           links({"CustomTaskSchemeIDNum"})},
          {{"TotalNum", "ScheduleNum"}, {"CustomTaskSchemeIDNum"}}),
      // A type of NULL, 1 or 3 makes the date a holiday.
      table("Holidays",
            {key("HolidayID"), dates({"HolidayDate"}), smalls({"HolidayType"}),
             texts({"HolidayName"})},
            {{"HolidayDate"}}),
      table("OperatingProcedures",
            {key("OperatingProcedureID"), links({"TaskIDNum", "ScheduleTypeIDNum"}),
             smalls({"OpProcedureScopeType"}, "2"), integers({"OrderNum"}),
             smalls({"OpProcedureType"}, "1"), texts({"OpProdedureName"})},
            {{"TaskIDNum", "OpProcedureScopeType", "OrderNum"}}),
  };
}

}  // namespace autonotify::host::schema
