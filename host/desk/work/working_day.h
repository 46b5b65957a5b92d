#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "host/desk/rows/Notification.h"
#include "host/desk/work/due_list.h"

namespace autonotify::host {

// What a firm has to tell its clients today and in the weeks to come.

/// Whose notifications; in both other cases by the name of the desk's user.
enum class DayShare {
  everyone,
  /// Of the tasks and items of the diary that are the user's work.
  mine,
  /// Of the clients that the user is the accountant of.
  myClients,
};

enum class DayState {
  ready,
  noAddress,
  /// Nobody answered the last call.
  callAgain,
  /// Its day is still to come.
  scheduled,
  /// Its cancelling was interrupted.
  interrupted,
};

/// A notification that waits, without its text.
struct DayLine {
  Notification row;
  std::string client = {};
  std::string item = {};
  /// Of the task or the item of the diary; the zero date where that is not known.
  DateTime due = {};
  DayState state = DayState::ready;
};

/// By channel, in the order of allNotifyTypes.
using ChannelCounts = std::array<std::size_t, 4>;
std::size_t totalOf(const ChannelCounts& counts);
/// Of the channels, a bit set.
std::size_t countOf(const ChannelCounts& counts, int channels);

struct DayGroup {
  std::size_t count = 0;
  ChannelCounts byChannel{};
  /// The first ones by date of the channels that were asked for, as many as were asked for at most.
  std::vector<DayLine> lines;
};

/// A week from its Monday to its Sunday.
struct WeekAhead {
  DateTime monday;
  ChannelCounts counts{};
};

struct WorkingDay {
  /// Dated before today, today, and from tomorrow to Sunday.
  DayGroup overdue, today, thisWeek;
  /// All that is due, also what has a date that cannot be read.
  ChannelCounts due{};
  /// From today on; the first week is this one.
  std::array<WeekAhead, 12> weeks;
  /// What was sent today, by whomever.
  std::size_t sentToday = 0;
  UnreadableRows unreadable;
};

// Both throw DatabaseError. Lines are those of the channels, a bit set; counts are of all.

/// The rows from the first day to the last, by date: `mostLines` at most.
ReadableRows<DayLine> readDays(Desk& desk, DayShare share, DateTime first, DateTime last,
                               std::size_t mostLines, int channels = allChannels);
WorkingDay readWorkingDay(Desk& desk, DayShare share, std::size_t mostLines,
                          int channels = allChannels);

}  // namespace autonotify::host
