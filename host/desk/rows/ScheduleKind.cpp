#include "host/desk/rows/ScheduleKind.h"

#include <fmt/format.h>

namespace autonotify::host {
namespace {

constexpr const char* kindTable = "ScheduleTypes";
constexpr const char* selectKinds =
    "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.ScheduleTypeName, ScheduleTypes.TotalNum, "
    "ScheduleTypes.ScheduleNum FROM ScheduleTypes";

ScheduleKind readKind(const Row& row) {
  return {row.id("ScheduleTypeID"), row.text("ScheduleTypeName"), row.id("TotalNum"),
          row.id("ScheduleNum")};
}

}  // namespace

ReadableRows<ScheduleKind> readScheduleKinds(Desk& desk) {
  ReadableRows<ScheduleKind> kinds;
  readRows(desk.database(), kindTable,
           fmt::format("{} ORDER BY ScheduleTypes.ScheduleTypeID;", selectKinds), kinds, readKind);
  return kinds;
}

std::optional<ScheduleKind> findScheduleKind(Desk& desk, Id id) {
  if (id < 0) return std::nullopt;
  return findRow(desk.database(), kindTable,
                 fmt::format("{} WHERE ScheduleTypes.ScheduleTypeID={};", selectKinds, id),
                 readKind);
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
