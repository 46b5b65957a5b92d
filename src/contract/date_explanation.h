#pragma once

#include <cstdint>
#include <vector>

#include "contract/enumerations.h"
#include "platform/DateTime.h"
#include "platform/Value.h"

namespace autonotify {

/// One day that a calculation looked at.
struct DayStep {
  enum class Verdict { counted, weekend, holiday };
  DateTime day;
  Verdict verdict = Verdict::counted;

  friend bool operator==(const DayStep&, const DayStep&) = default;
};

/// Why a new notification of a schedule entry gets its date: the steps in the order they are taken.
struct DateExplanation {
  /// False when there is no such schedule entry; all else is unset then.
  bool found = false;
  DateTime dueDate;
  Id totalNum = noId;
  Id scheduleNum = noId;
  /// The firm's own rule decided the period, not the kind of entry.
  bool usedFirmRule = false;
  /// Days for calculation: negative before the due date.
  int days = 0;
  /// The walk from the due date; `days` of them are counted.
  std::vector<DayStep> walk;
  /// Days left behind the walk because they are no working days, at most nine.
  std::vector<DayStep> settling;
  DateTime determined;
  /// The channel of the row whose date is taken over, 0 for none.
  int siblingChannel = 0;
  DateTime afterSibling;
  /// Days left on the way back to a working day.
  std::vector<DayStep> backToWorkingDay;
  DateTime result;
};

}  // namespace autonotify
