#include "host/desk/day_text.h"

#include <fmt/format.h>

#include "platform/date_time_text.h"

namespace autonotify::host {

std::optional<DateTime> readDate(std::string_view text) {
  const std::optional<DateTime> moment = parseDateTime(text);
  // A time alone stands on the zero date.
  if (!moment || moment->days() == 0) return std::nullopt;
  return moment->dateOnly();
}

std::string dateFault(std::string_view text) {
  return fmt::format("\"{}\" is no date; write it as 2026-04-30", text);
}

std::string dayText(DateTime moment) {
  return moment.isZero() ? "-" : dateTimeText(moment.dateOnly());
}

}  // namespace autonotify::host
