#include "host/services/HostValidationUtilities.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "platform/calendar_names.h"
#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr int sunday = 1;
constexpr int saturday = 7;

bool isWeekday(std::string_view word) {
  return std::ranges::any_of(weekdayNames, [&](std::string_view name) {
    return equalIgnoreCase(word, name) || equalIgnoreCase(word, name.substr(0, shortNameLength));
  });
}

// parseDateTime knows a weekday ahead of the name of a month only.
std::string_view withoutWeekday(std::string_view text) {
  text = trim(text);
  const std::size_t end = text.find_first_of(", ");
  if (end == std::string_view::npos || !isWeekday(text.substr(0, end))) return text;
  return text.substr(std::min(text.find_first_not_of(", ", end), text.size()));
}

std::optional<DateTime> readDate(std::string_view text) {
  const std::optional<DateTime> moment = parseDateTime(withoutWeekday(text));
  return moment && moment->days() != 0 ? moment : std::nullopt;
}

}  // namespace

bool HostValidationUtilities::isWeekend(DateTime date) {
  return date.weekday() == saturday || date.weekday() == sunday;
}

bool HostValidationUtilities::isDateText(const std::string& text) {
  return readDate(text).has_value();
}

bool HostValidationUtilities::parseDateText(const std::string& text, DateTime& date) {
  const std::optional<DateTime> moment = readDate(text);
  if (moment) date = *moment;
  return moment.has_value();
}

bool HostValidationUtilities::isValidYear(std::int16_t year) {
  return year >= 1900 && year <= 2099;
}

std::string HostValidationUtilities::getDurationText(int minutes) {
  const std::int64_t whole = std::llabs(minutes);
  std::string text = minutes < 0 ? "-" : "";
  if (whole >= 60) text += std::to_string(whole / 60) + " hr";
  if (whole >= 60 && whole % 60 != 0) text += ' ';
  if (whole < 60 || whole % 60 != 0) text += std::to_string(whole % 60) + " min";
  return text;
}

}  // namespace autonotify::host
