#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DateTime.h"

namespace autonotify::host::demo {

/// The content of data/holidays.tsv: a heading, then one line of set, date and name a holiday.
extern const std::string_view holidayLines;

struct Holiday {
  DateTime date;
  std::string name;
};

/// The holidays of a set such as "CA-ON", by date. The set "CA" holds the days that all Canadian
/// sets share: the provinces without a set of their own keep these. An unknown set is empty.
std::vector<Holiday> holidaysOf(std::string_view set);

/// Working days: neither weekend nor holiday.
class WorkCalendar {
 public:
  explicit WorkCalendar(const std::vector<Holiday>& holidays);
  bool isWorkingDay(DateTime date) const;
  /// The day `count` working days before `date` (after it for a negative count).
  DateTime workingDaysBefore(DateTime date, int count) const;
  /// The last working day on or before `date`.
  DateTime workingDayOnOrBefore(DateTime date) const;

 private:
  std::set<DateTime> holidays_;
};

}  // namespace autonotify::host::demo
