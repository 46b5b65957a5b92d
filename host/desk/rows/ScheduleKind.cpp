#include "host/desk/rows/ScheduleKind.h"

#include <fmt/format.h>

#include "host/clients/record_rows.h"

namespace autonotify::host {
namespace {

constexpr const char* selectKinds =
    "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.ScheduleTypeName, ScheduleTypes.TotalNum, "
    "ScheduleTypes.ScheduleNum FROM ScheduleTypes";

ScheduleKind readKind(const Row& row) {
  return {row.id("ScheduleTypeID"), row.text("ScheduleTypeName"), row.id("TotalNum"),
          row.id("ScheduleNum")};
}

}  // namespace

std::vector<ScheduleKind> readScheduleKinds(Desk& desk) {
  std::vector<ScheduleKind> kinds;
  forEachRow(desk.database(), fmt::format("{} ORDER BY ScheduleTypes.ScheduleTypeID;", selectKinds),
             [&](const Row& row) { kinds.push_back(readKind(row)); });
  return kinds;
}

std::optional<ScheduleKind> findScheduleKind(Desk& desk, Id id) {
  std::optional<ScheduleKind> found;
  if (id < 0) return found;
  firstRow(desk.database(),
           fmt::format("{} WHERE ScheduleTypes.ScheduleTypeID={};", selectKinds, id),
           [&](const Row& row) { found = readKind(row); });
  return found;
}

std::string scheduleKindName(Desk& desk, Id totalNum, Id scheduleNum) {
  std::string name;
  firstRow(desk.database(),
           fmt::format("SELECT ScheduleTypes.ScheduleTypeName FROM ScheduleTypes WHERE "
                       "ScheduleTypes.TotalNum={} AND ScheduleTypes.ScheduleNum={};",
                       totalNum, scheduleNum),
           [&](const Row& row) { name = row.text("ScheduleTypeName"); });
  return name;
}

}  // namespace autonotify::host
