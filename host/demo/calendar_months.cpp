#include <algorithm>

#include "host/demo/demo_world.h"

namespace autonotify::host::demo {

DateTime monthEnd(DateTime date, int months) {
  return dayOfMonth(date, months, 31);
}

DateTime dayOfMonth(DateTime date, int months, int day) {
  const int month = date.year() * 12 + static_cast<int>(date.month()) - 1 + months;
  const auto firstOf = [](int count) {
    return DateTime::of(count / 12, static_cast<unsigned>(count % 12 + 1), 1);
  };
  const int length = firstOf(month + 1).days() - firstOf(month).days();
  return firstOf(month).addDays(std::min(day, length) - 1);
}

}  // namespace autonotify::host::demo
