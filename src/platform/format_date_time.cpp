#include <algorithm>
#include <charconv>
#include <iterator>

#include "platform/calendar_names.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr std::string_view halfOfDay = "am/pm";

struct Context {
  DateTime moment;
  std::chrono::year_month_day date;
  std::string_view pattern;
  std::string& text;

  void write(std::string_view name) const { text += name; }
  void write(int number) const {
    char digits[16];
    text.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
  }
  void writeTwoDigits(int number) const {
    if (number >= 0 && number < 10) text += '0';
    write(number);
  }
};

std::string_view weekdayName(const Context& c) {
  return weekdayNames[static_cast<std::size_t>(c.moment.weekday() - 1)];
}
std::string_view monthName(const Context& c) {
  return monthNames[static_cast<unsigned>(c.date.month()) - 1];
}
std::string_view shortened(std::string_view name) {
  return name.substr(0, shortNameLength);
}

int day(const Context& c) {
  return static_cast<int>(static_cast<unsigned>(c.date.day()));
}
int month(const Context& c) {
  return static_cast<int>(static_cast<unsigned>(c.date.month()));
}
int year(const Context& c) {
  return static_cast<int>(c.date.year());
}
int hour(const Context& c) {
  const bool twelveHours = findIgnoreCase(c.pattern, halfOfDay) != std::string_view::npos;
  return twelveHours ? (c.moment.hour() + 11) % 12 + 1 : c.moment.hour();
}

struct Field {
  char letter;
  /// How often the letter stands there.
  std::size_t length;
  void (*write)(const Context&);
};

// Of two fields of one letter the longer one stands first.
constexpr Field fields[] = {
    {'d', 4, [](const Context& c) { c.write(weekdayName(c)); }},
    {'d', 3, [](const Context& c) { c.write(shortened(weekdayName(c))); }},
    {'d', 2, [](const Context& c) { c.writeTwoDigits(day(c)); }},
    {'d', 1, [](const Context& c) { c.write(day(c)); }},
    {'m', 4, [](const Context& c) { c.write(monthName(c)); }},
    {'m', 3, [](const Context& c) { c.write(shortened(monthName(c))); }},
    {'m', 2, [](const Context& c) { c.writeTwoDigits(month(c)); }},
    {'m', 1, [](const Context& c) { c.write(month(c)); }},
    {'y', 4, [](const Context& c) { c.write(year(c)); }},
    {'y', 2, [](const Context& c) { c.writeTwoDigits(year(c) % 100); }},
    {'h', 2, [](const Context& c) { c.writeTwoDigits(hour(c)); }},
    {'h', 1, [](const Context& c) { c.write(hour(c)); }},
    {'n', 2, [](const Context& c) { c.writeTwoDigits(c.moment.minute()); }},
    {'n', 1, [](const Context& c) { c.write(c.moment.minute()); }},
    {'s', 2, [](const Context& c) { c.writeTwoDigits(c.moment.second()); }},
    {'s', 1, [](const Context& c) { c.write(c.moment.second()); }},
};

constexpr char small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter | 0x20) : letter;
}

const Field* fieldOf(char letter, std::size_t length) {
  for (const Field& field : fields)
    if (field.letter == letter && field.length <= length) return &field;
  return nullptr;
}

const Field* fieldAt(std::string_view pattern) {
  const char letter = small(pattern[0]);
  if (letter < 'a' || letter > 'z') return nullptr;
  std::size_t length = 1;
  while (length < pattern.size() && small(pattern[length]) == letter) ++length;
  return fieldOf(letter, length);
}

/// `m` and `mm` behind an hour, whatever separates them, mean minutes.
const Field* minutesIfBehindHour(const Field* field, char previousLetter) {
  if (previousLetter != 'h' || field->letter != 'm' || field->length > 2) return field;
  return fieldOf('n', field->length);
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
  std::string result;
  const Context context{moment, moment.date(), pattern, result};
  char previousLetter = 0;
  while (!pattern.empty()) {
    std::size_t length = 0;
    if (const Field* field = fieldAt(pattern)) {
      field = minutesIfBehindHour(field, previousLetter);
      length = field->length;
      previousLetter = field->letter;
      field->write(context);
    } else if (equalIgnoreCase(pattern.substr(0, halfOfDay.size()), halfOfDay)) {
      length = halfOfDay.size();
      result += pattern.substr(moment.hour() < 12 ? 0 : 3, 2);
    } else {
      length = writeLiteral(pattern, result);
    }
    pattern.remove_prefix(length);
  }
  return result;
}

}  // namespace autonotify
