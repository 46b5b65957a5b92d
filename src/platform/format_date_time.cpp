#include <algorithm>
#include <cstdio>

#include "platform/calendar_names.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {
namespace {

/// What the letters of a pattern may need beside the moment itself.
struct Context {
  DateTime moment;
  bool twelveHours;
};

std::string twoDigits(int number) {
  char text[16];
  std::snprintf(text, sizeof text, "%02d", number);
  return text;
}

std::string_view weekdayName(DateTime moment) {
  return weekdayNames[static_cast<std::size_t>(moment.weekday() - 1)];
}
std::string_view monthName(DateTime moment) {
  return monthNames[moment.month() - 1];
}
std::string shortened(std::string_view name) {
  return std::string(name.substr(0, shortNameLength));
}

int day(const Context& c) {
  return static_cast<int>(c.moment.day());
}
int month(const Context& c) {
  return static_cast<int>(c.moment.month());
}
int hour(const Context& c) {
  return c.twelveHours ? (c.moment.hour() + 11) % 12 + 1 : c.moment.hour();
}

struct Field {
  std::string_view letters;
  std::string (*write)(const Context&);
};

// Of two fields that begin alike the longer one stands first.
constexpr Field fields[] = {
    {"dddd", [](const Context& c) { return std::string(weekdayName(c.moment)); }},
    {"ddd", [](const Context& c) { return shortened(weekdayName(c.moment)); }},
    {"dd", [](const Context& c) { return twoDigits(day(c)); }},
    {"d", [](const Context& c) { return std::to_string(day(c)); }},
    {"mmmm", [](const Context& c) { return std::string(monthName(c.moment)); }},
    {"mmm", [](const Context& c) { return shortened(monthName(c.moment)); }},
    {"mm", [](const Context& c) { return twoDigits(month(c)); }},
    {"m", [](const Context& c) { return std::to_string(month(c)); }},
    {"yyyy", [](const Context& c) { return std::to_string(c.moment.year()); }},
    {"yy", [](const Context& c) { return twoDigits(c.moment.year() % 100); }},
    {"hh", [](const Context& c) { return twoDigits(hour(c)); }},
    {"h", [](const Context& c) { return std::to_string(hour(c)); }},
    {"nn", [](const Context& c) { return twoDigits(c.moment.minute()); }},
    {"n", [](const Context& c) { return std::to_string(c.moment.minute()); }},
    {"ss", [](const Context& c) { return twoDigits(c.moment.second()); }},
    {"s", [](const Context& c) { return std::to_string(c.moment.second()); }},
};
constexpr std::string_view halfOfDay = "am/pm";

/// `letters` are small ones of the alphabet. Most texts differ from most of them at once.
bool beginsWith(std::string_view text, std::string_view letters) {
  return !text.empty() && (text[0] | 0x20) == letters[0] &&
         equalIgnoreCase(text.substr(0, letters.size()), letters);
}

const Field* fieldAt(std::string_view pattern) {
  for (const Field& field : fields)
    if (beginsWith(pattern, field.letters)) return &field;
  return nullptr;
}

/// `m` and `mm` behind an hour, whatever separates them, mean minutes.
const Field* minutesIfBehindHour(const Field* field, char previousLetter) {
  if (previousLetter != 'h' || field->letters[0] != 'm' || field->letters.size() > 2) return field;
  return fieldAt(std::string_view("nn").substr(0, field->letters.size()));
}

/// Length in the pattern of the literal at its start, which is written to `result`.
std::size_t writeLiteral(std::string_view pattern, std::string& result) {
  if (pattern[0] == '\\' && pattern.size() > 1) {
    result += pattern[1];
    return 2;
  }
  if (pattern[0] != '"') {
    result += pattern[0];
    return 1;
  }
  const std::size_t end = std::min(pattern.find('"', 1), pattern.size());
  result += pattern.substr(1, end - 1);
  return std::min(end + 1, pattern.size());
}

}  // namespace

std::string formatDateTime(DateTime moment, std::string_view pattern) {
  const Context context{moment, findIgnoreCase(pattern, halfOfDay) != std::string_view::npos};
  std::string result;
  char previousLetter = 0;
  while (!pattern.empty()) {
    std::size_t length = 0;
    if (beginsWith(pattern, halfOfDay)) {
      length = halfOfDay.size();
      result += pattern.substr(moment.hour() < 12 ? 0 : 3, 2);
    } else if (const Field* field = fieldAt(pattern)) {
      field = minutesIfBehindHour(field, previousLetter);
      length = field->letters.size();
      previousLetter = field->letters[0];
      result += field->write(context);
    } else {
      length = writeLiteral(pattern, result);
    }
    pattern.remove_prefix(length);
  }
  return result;
}

}  // namespace autonotify
