#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/desk/rows/DiaryItem.h"
#include "host/desk/work/arm_channels.h"

namespace autonotify::host {

/// Why nobody can be reminded of a diary item.
enum class ReminderFault {
  /// A task of the diary that belongs to no schedule entry.
  noTask,
  /// A date was named for a task, which follows its due date.
  dateOfTask,
  noDay,
  /// It lacks its start or its end.
  noTime,
  noClient,
  /// It is over, and no date was named.
  isOver,
  /// The date that was named is behind the item's day.
  dateIsLate,
  /// The calendar gave no working day before it.
  noWorkingDay,
};

/// What came of arming or disarming an item's reminders.
struct Reminders {
  DiaryItem item;
  /// Set when nothing was done.
  std::optional<ReminderFault> fault = std::nullopt;
  /// With noWorkingDay: what the component met.
  std::string errors = {};
  std::vector<ChannelOutcome> channels = {};
};

/// Reminds the item's client by the channels. The reminder falls due on `date`, or else on the last
/// working day before the item; that of a task is worked out as for its schedule entry.
Outcome<Reminders> armReminders(Desk& desk, CurrentDayTimerType kind, Id id,
                                std::span<const notifyType> channels, std::optional<DateTime> date);

/// See disarmChannels.
Outcome<Reminders> disarmReminders(Desk& desk, CurrentDayTimerType kind, Id id,
                                   std::span<const notifyType> channels, bool force);

}  // namespace autonotify::host
