#include <functional>

#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "scheduling/schedule_kinds.h"
#include "settings/modUserSettings.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

class SchedulingStatements : public HostTest {};

/// Hosts see these texts and modes ("cursor,lock"); the database is empty.
TEST_F(SchedulingStatements, AreOpenedWithTheirModes) {
  const DateTime day = DateTime::of(2026, 11, 23);
  const std::string types = "FROM ScheduleTypes WHERE ScheduleTypes.";
  const std::string kind = "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.";
  const std::string setting =
      "1,3 SELECT UserGeneralSettings.UserIDNum, UserGeneralSettings.ShowEmailPreview FROM "
      "UserGeneralSettings WHERE UserIDNum=7;";
  clsAutoNotifyTemplate kindOf;
  const std::pair<std::function<void()>, std::vector<std::string>> cases[] = {
      {[&] { isStatutoryHoliday(day); },
       {"0,1 SELECT Holidays.HolidayDate, Holidays.HolidayType FROM Holidays WHERE "
        "Holidays.HolidayDate = #" +
        plainDatabase->formatDateForSQL(day) + "# ;"}},
      {[] { determineNotificationDate(7); },
       {"1,1 SELECT Schedule.ScheduleID, Schedule.totalNum, Schedule.scheduleNum, "
        "Schedule.DueDate, Schedule.Custom2 FROM Schedule WHERE ScheduleID=7;"}},
      {[&] { getLastUsedNotificationDate(7, day); },
       {"1,1 SELECT ClientNotification.* FROM ClientNotification WHERE ScheduleIDNum=7;"}},
      {[] { refreshNotificationDate(7); },
       {"1,1 SELECT Schedule.ScheduleID, Schedule.DueDate, Schedule.totalNum, "
        "Schedule.scheduleNum FROM Schedule WHERE ScheduleID=7;"}},
      {[] { getFirstValidScheduleNum(7); },
       {"0,1 SELECT ScheduleTypes.* FROM ScheduleTypes WHERE TotalNum=7 ORDER BY scheduleNum;"}},
      {[] { generateClientAutoNotifyComment(7); },
       {"1,1 SELECT Schedule.ScheduleID, Schedule.ClientNum, Schedule.ContactIDNum, "
        "Schedule.totalNum, Schedule.scheduleNum FROM Schedule WHERE ScheduleID=7;"}},
      {[] { getNotificationPeriod(7, 2, true); },
       {"1,1 " + kind + "TotalNum, ScheduleTypes.ScheduleNum " + types +
        "TotalNum=7 AND ScheduleTypes.ScheduleNum=2;"}},
      {[&] { kindOf.findAndOpenScheduleTypeByCustomTaskSchemeIDNum(7); },
       {"1,1 " + kind + "CustomTaskSchemeIDNum " + types + "CustomTaskSchemeIDNum=7;"}},
      {[&] { kindOf.openExistingScheduleType(7); },
       {"1,3 SELECT ScheduleTypes.* " + types + "ScheduleTypeID=7;"}},
      {[] { getShowEmailPreview(7); }, {setting, setting}},
      {[] { getShowEmailPreview(7); }, {setting}},
  };
  for (const auto& [run, opened] : cases) EXPECT_EQ(statementsOf(run), opened);
}

}  // namespace
}  // namespace autonotify::test
