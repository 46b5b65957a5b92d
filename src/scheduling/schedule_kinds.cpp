#include "scheduling/schedule_kinds.h"

#include "contract/rows.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modNotificationDates", name>;

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
  return procedure(tagOf<"getFirstValidScheduleNum">, noId, [&](Step& step, Id& result) {
    if (!isDatabaseOpen(step)) return;
    const std::string sql =
        "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE TotalNum=" + std::to_string(totalNum) +
        " ORDER BY scheduleNum;";
    for (const Row& kind : Rows(step, sql, forwardRead)) {
      const Id scheduleNum = kind.id("scheduleNum");
      if (scheduleNum > 0) result = scheduleNum;
      if (result >= 0) break;
    }
  });
}

std::string getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(Id& totalNum, Id& ScheduleNum,
                                                                bool familyRow) {
  return procedure(tagOf<"getScheduleTypesSQLStr">, std::string{}, [&](Step&, std::string& result) {
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
