#include "platform/date_time_text.h"
#include "platform/calendar_names.h"
#include "platform/text.h"

namespace autonotify {
namespace {

/// Reads a text from the left. A read that fails may have moved on; whoever tries several readings
/// tries each on a copy.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }

  bool skip(char expected) {
    if (!rest_.starts_with(expected)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool skipBlanks() {
    bool any = false;
    while (skip(' ')) any = true;
    return any;
  }

  std::optional<int> number(std::size_t leastDigits, std::size_t mostDigits) {
    const std::string_view digits = take(isAsciiDigit);
    if (digits.size() < leastDigits || digits.size() > mostDigits) return std::nullopt;
    int value = 0;
    for (const char digit : digits) value = value * 10 + (digit - '0');
    return value;
  }

  std::string_view word() { return take(isAsciiLetter); }

 private:
  template <class Belongs>
  std::string_view take(Belongs belongs) {
    std::size_t length = 0;
    while (length < rest_.size() && belongs(rest_[length])) ++length;
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return taken;
  }

  std::string_view rest_;
};

std::optional<DateTime> dayOf(std::optional<int> year, std::optional<int> month,
                              std::optional<int> day) {
  if (!year || !month || !day || *year < 100) return std::nullopt;
  const auto date = std::chrono::year{*year} / *month / *day;
  if (!date.ok()) return std::nullopt;
  return DateTime::of(*year, static_cast<unsigned>(*month), static_cast<unsigned>(*day));
}

/// The position, from 1, of the name that the word writes out or cuts short after three letters or
/// more.
template <class Names>
std::optional<int> positionOf(std::string_view word, const Names& names) {
  if (word.size() < shortNameLength) return std::nullopt;
  for (std::size_t i = 0; i < names.size(); ++i)
    if (equalIgnoreCase(word, names[i].substr(0, word.size()))) return static_cast<int>(i) + 1;
  return std::nullopt;
}

std::optional<int> readMonthName(Scanner& scanner) {
  const auto month = positionOf(scanner.word(), monthNames);
  scanner.skip('.');
  return month;
}

/// "Thursday, " ahead of a date tells nothing new.
void skipWeekday(Scanner& scanner) {
  Scanner ahead = scanner;
  if (!positionOf(ahead.word(), weekdayNames)) return;
  ahead.skip(',');
  if (ahead.skipBlanks()) scanner = ahead;
}

std::optional<DateTime> readYearFirst(Scanner& scanner) {
  const auto year = scanner.number(4, 4);
  if (!scanner.skip('-')) return std::nullopt;
  const auto month = scanner.number(1, 2);
  if (!scanner.skip('-')) return std::nullopt;
  return dayOf(year, month, scanner.number(1, 2));
}

std::optional<DateTime> readSlashes(Scanner& scanner) {
  const auto month = scanner.number(1, 2);
  if (!scanner.skip('/')) return std::nullopt;
  const auto day = scanner.number(1, 2);
  if (!scanner.skip('/')) return std::nullopt;
  return dayOf(scanner.number(4, 4), month, day);
}

std::optional<DateTime> readMonthNameFirst(Scanner& scanner) {
  skipWeekday(scanner);
  const auto month = readMonthName(scanner);
  scanner.skipBlanks();
  const auto day = scanner.number(1, 2);
  const bool comma = scanner.skip(',');
  if (!scanner.skipBlanks() && !comma) return std::nullopt;
  return dayOf(scanner.number(4, 4), month, day);
}

std::optional<DateTime> readDayThenMonthName(Scanner& scanner) {
  skipWeekday(scanner);
  const auto day = scanner.number(1, 2);
  scanner.skipBlanks();
  const auto month = readMonthName(scanner);
  scanner.skip(',');
  scanner.skipBlanks();
  return dayOf(scanner.number(4, 4), month, day);
}

std::optional<DateTime> readDate(Scanner& scanner) {
  for (const auto reading :
       {readYearFirst, readSlashes, readMonthNameFirst, readDayThenMonthName}) {
    Scanner ahead = scanner;
    if (const auto day = reading(ahead)) {
      scanner = ahead;
      return day;
    }
  }
  return std::nullopt;
}

/// The hour of the day for an hour of the clock's face and the word behind it; an hour of the day
/// stands without a word.
std::optional<int> hourOfDay(int hour, std::string_view half) {
  if (half.empty()) return hour < 24 ? std::optional(hour) : std::nullopt;
  const bool afternoon = equalIgnoreCase(half, "pm");
  if ((!afternoon && !equalIgnoreCase(half, "am")) || hour < 1 || hour > 12) return std::nullopt;
  return hour % 12 + (afternoon ? 12 : 0);
}

/// Seconds since midnight.
std::optional<int> readTime(Scanner& scanner) {
  const auto face = scanner.number(1, 2);
  if (!face || !scanner.skip(':')) return std::nullopt;
  const auto minute = scanner.number(2, 2);
  const auto second = scanner.skip(':') ? scanner.number(2, 2) : 0;
  scanner.skipBlanks();
  const auto hour = hourOfDay(*face, scanner.word());
  if (!hour || !minute || !second || *minute > 59 || *second > 59) return std::nullopt;
  return *hour * 3600 + *minute * 60 + *second;
}

/// The ordinary form, which most texts have, without a look at any other.
std::optional<DateTime> readOrdinary(std::string_view text) {
  constexpr std::string_view form = "0000-00-00 00:00:00";
  constexpr std::size_t dayAlone = 10;
  if (text.size() != dayAlone && text.size() != form.size()) return std::nullopt;
  const auto hasMark = [&](std::size_t at) { return text[at] == form[at]; };
  bool areDigits = true;
  const auto two = [&](std::size_t at) {
    areDigits = areDigits && isAsciiDigit(text[at]) && isAsciiDigit(text[at + 1]);
    return (text[at] - '0') * 10 + (text[at + 1] - '0');
  };
  const int year = two(0) * 100 + two(2), month = two(5), dayOfMonth = two(8);
  if (!areDigits || !hasMark(4) || !hasMark(7)) return std::nullopt;
  const auto day = dayOf(year, month, dayOfMonth);
  if (!day || text.size() == dayAlone) return day;
  const int hour = two(11), minute = two(14), second = two(17);
  if (!areDigits || !hasMark(10) || !hasMark(13) || !hasMark(16)) return std::nullopt;
  if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return DateTime::fromSerial(day->days(), hour * 3600 + minute * 60 + second);
}

void putDigits(std::string& text, std::size_t at, std::size_t count, int number) {
  for (std::size_t place = at + count; place-- > at; number /= 10)
    text[place] = static_cast<char>('0' + number % 10);
}

}  // namespace

std::string dateTimeText(DateTime moment) {
  std::string text = "0000-00-00";
  putDigits(text, 0, 4, moment.year());
  putDigits(text, 5, 2, static_cast<int>(moment.month()));
  putDigits(text, 8, 2, static_cast<int>(moment.day()));
  if (moment.seconds() == 0) return text;
  text += " 00:00:00";
  putDigits(text, 11, 2, moment.hour());
  putDigits(text, 14, 2, moment.minute());
  putDigits(text, 17, 2, moment.second());
  return text;
}

std::optional<DateTime> parseDateTime(std::string_view text) {
  if (const auto moment = readOrdinary(text)) return moment;
  Scanner scanner(trim(text));
  const auto day = readDate(scanner);
  if (day && scanner.atEnd()) return day;
  if (day && !scanner.skipBlanks() && !scanner.skip('T')) return std::nullopt;
  const auto seconds = readTime(scanner);
  if (!seconds || !scanner.atEnd()) return std::nullopt;
  return DateTime::fromSerial(day.value_or(DateTime{}).days(), *seconds);
}

}  // namespace autonotify
