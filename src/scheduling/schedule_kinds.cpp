#include "scheduling/schedule_kinds.h"

#include "contract/recordsets.h"

namespace autonotify {
namespace {

void setFallbackKind(Id& totalNum, Id& scheduleNum) {
  totalNum = fallbackTotalNum;
  scheduleNum = fallbackScheduleNum;
}

/// A family or member below 1 is looked up as -1.
std::string kindSql(Id totalNum, Id scheduleNum) {
  const Id family = totalNum < 1 ? noId : totalNum;
  const Id member = totalNum < 1 || scheduleNum < 1 ? noId : scheduleNum;
  return "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.TotalNum, ScheduleTypes.ScheduleNum "
         "FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=" +
         std::to_string(family) + " AND ScheduleTypes.ScheduleNum=" + std::to_string(member) + ";";
}

}  // namespace

Id getFirstValidScheduleNum(Id totalNum) {
  return procedure("Morvane.exe-modNotificationDates-getFirstValidScheduleNum", noId,
                   [&](Step& step, Id& result) {
                     if (!isDatabaseOpen(step)) return;
                     const std::string sql =
                         "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE TotalNum=" +
                         std::to_string(totalNum) + " ORDER BY scheduleNum;";
                     forEachRow(step, sql, forwardRead, [&](RecordsetHandle handle) {
                       const Id scheduleNum = readId(step, handle, "scheduleNum");
                       if (scheduleNum > 0) result = scheduleNum;
                       return result < 0;
                     });
                   });
}

std::string getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(Id& totalNum, Id& ScheduleNum,
                                                                bool familyRow) {
  return procedure("Morvane.exe-modNotificationDates-getScheduleTypesSQLStr", std::string{},
                   [&](Step&, std::string& result) {
                     if (totalNum < 1) {
                       setFallbackKind(totalNum, ScheduleNum);
                     } else if (!familyRow) {
                       if (ScheduleNum < 1) ScheduleNum = getFirstValidScheduleNum(totalNum);
                       if (ScheduleNum < 1) setFallbackKind(totalNum, ScheduleNum);
                     }
                     result = kindSql(totalNum, ScheduleNum);
                   });
}

}  // namespace autonotify
