#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/desk/Desk.h"

namespace autonotify::host {

/// A row of ScheduleTypes: a kind of schedule entry, or all kinds of one family.
struct ScheduleKind {
  static constexpr Id wholeFamily = -1;

  Id id = noId;
  std::string name;
  Id totalNum = noId;
  Id scheduleNum = noId;

  bool isFamily() const { return scheduleNum == wholeFamily; }
};

std::vector<ScheduleKind> readScheduleKinds(Desk& desk);
std::optional<ScheduleKind> findScheduleKind(Desk& desk, Id id);
/// Empty for a kind that the firm has no name for.
std::string scheduleKindName(Desk& desk, Id totalNum, Id scheduleNum);

}  // namespace autonotify::host
