#pragma once

#include <optional>
#include <string>

#include "host/desk/Outcome.h"
#include "host/desk/rows/readable_rows.h"

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

ReadableRows<ScheduleKind> readScheduleKinds(Desk& desk);
/// Throws UnreadableRow.
std::optional<ScheduleKind> findScheduleKind(Desk& desk, Id id);
/// The kind of that number, or else of that name, in any case. Refused when there is none, or when
/// several have the name.
Outcome<ScheduleKind> requireScheduleKind(Desk& desk, const std::string& numberOrName);
/// The kind whose template the task's notifications are composed by: of one that names a family
/// alone the first; unset where the firm has none. Throws UnreadableRow.
std::optional<ScheduleKind> findKindOfTask(Desk& desk, Id task);
/// Empty for a kind that the firm has no name for.
std::string scheduleKindName(Desk& desk, Id totalNum, Id scheduleNum);

}  // namespace autonotify::host
