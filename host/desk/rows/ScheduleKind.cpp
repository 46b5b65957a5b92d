#include "host/desk/rows/ScheduleKind.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <charconv>
#include <iterator>

#include "platform/text.h"

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

std::optional<Id> wholeNumber(const std::string& text) {
  Id number = noId;
  const char* const end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, number);
  return stop == end && fault == std::errc{} ? std::optional(number) : std::nullopt;
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

Outcome<ScheduleKind> requireScheduleKind(Desk& desk, const std::string& numberOrName) {
  const std::string subject = "schedule type " + numberOrName;
  std::vector<ScheduleKind> found;
  if (const auto number = wholeNumber(numberOrName)) {
    if (auto kind = findScheduleKind(desk, *number)) found.push_back(*std::move(kind));
  } else {
    found = readScheduleKinds(desk).rows;
    std::erase_if(found, [name = trim(numberOrName)](const ScheduleKind& kind) {
      return !equalIgnoreCase(kind.name, name);
    });
  }
  if (found.empty()) return Refused{Refused::Why::notThere, subject};
  if (found.size() == 1) return found.front();
  std::vector<Id> numbers;
  std::ranges::transform(found, std::back_inserter(numbers), &ScheduleKind::id);
  return Refused{
      Refused::Why::failed, subject,
      fmt::format("several have this name; give a number: {}", fmt::join(numbers, ", "))};
}

std::optional<ScheduleKind> findKindOfTask(Desk& desk, Id task) {
  std::string member;
  firstRow(desk.database(),
           fmt::format("SELECT Schedule.totalNum, Schedule.scheduleNum FROM Schedule WHERE "
                       "Schedule.ScheduleID={};",
                       task),
           [&](const Row& row) {
             const Id number = row.id("scheduleNum");
             member = fmt::format("ScheduleTypes.TotalNum={} AND ScheduleTypes.ScheduleNum{}{}",
                                  row.id("totalNum"), number < 1 ? ">" : "=", std::max(number, 0));
           });
  if (member.empty()) return std::nullopt;
  return findRow(
      desk.database(), kindTable,
      fmt::format("{} WHERE {} ORDER BY ScheduleTypes.ScheduleNum;", selectKinds, member),
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
