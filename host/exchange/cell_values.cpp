#include "host/exchange/cell_values.h"

#include <langinfo.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <locale>

#include "host/clients/record_rows.h"
#include "host/exchange/EntryBook.h"
#include "platform/date_time_text.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace autonotify::host {
namespace {

constexpr std::array<std::string_view, 7> yesWords{"yes", "y", "true", "1", "-1", "x", "oui"};
constexpr std::array<std::string_view, 6> noWords{"no", "n", "false", "0", "non", "-"};

bool isOneOf(std::string_view signs, char c) {
  return signs.find(c) != signs.npos;
}

/// Three numbers with one sign between them; nothing for any other text.
std::optional<std::array<int, 3>> numbersOfDate(const std::string& text) {
  std::array<int, 3> numbers{};
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0 && (at == end || !isOneOf("/.-", *at++))) return std::nullopt;
    const auto [next, fault] = std::from_chars(at, end, numbers[i]);
    if (fault != std::errc() || numbers[i] < 0) return std::nullopt;
    at = next;
  }
  return at == end ? std::optional(numbers) : std::nullopt;
}

std::optional<DateTime> dateIn(const std::string& text, DateOrder order) {
  const auto numbers = numbersOfDate(text);
  if (!numbers || (*numbers)[0] > 31) return parseDateTime(text);
  const auto [first, second, year] = *numbers;
  const bool isDayFirst = order == DateOrder::dayFirst;
  const int month = isDayFirst ? second : first;
  const int day = isDayFirst ? first : second;
  return parseDateTime(std::to_string(month) + '/' + std::to_string(day) + '/' +
                       std::to_string(year));
}

/// "$1,234.50", "1 234,50" and "1234.5" as "1234.50" and "1234.5".
std::string plainNumber(const std::string& cell) {
  std::string number;
  for (const char c : cell)
    if (isOneOf("0123456789.,-+", c)) number += c;
  const std::size_t comma = number.rfind(',');
  const bool isDecimalComma = comma != number.npos && number.find('.') == number.npos &&
                              number.find(',') == comma && number.size() - comma <= 3;
  if (isDecimalComma) number[comma] = '.';
  std::erase(number, ',');
  return number;
}

[[noreturn]] void refuse(const EntryColumn& column, const std::string& cell, const char* what) {
  throw EntryRefused(std::string(column.heading) + ": \"" + shortened(cell, 60) + "\" is no " +
                     what);
}

Value readNumber(const EntryColumn& column, const std::string& cell) {
  const std::string number = plainNumber(cell);
  const bool isWhole = column.type == CellType::integer;
  if (!isNumeric(number)) refuse(column, cell, isWhole ? "whole number" : "number");
  if (!isWhole) return toDouble(number);
  const double value = toDouble(number);
  if (value != static_cast<std::int16_t>(value)) refuse(column, cell, "whole number up to 32767");
  return static_cast<std::int16_t>(value);
}

const char* whatDateWanted(const std::string& cell, DateOrder order) {
  if (order == DateOrder::dayFirst) return "date such as 2026-12-31 or 31/12/2026";
  return dateIn(cell, DateOrder::dayFirst)
             ? "date such as 2026-12-31 or 12/31/2026; it would be one with the day first"
             : "date such as 2026-12-31 or 12/31/2026";
}

bool isWordOf(const auto& words, const std::string& cell) {
  return std::ranges::find(words, lowerCase(cell)) != words.end();
}

}  // namespace

DateOrder dateOrderOfLocale() {
  const locale_t locale = ::newlocale(LC_TIME_MASK, "", nullptr);
  if (!locale) return DateOrder::monthFirst;
  const std::string_view format = ::nl_langinfo_l(D_FMT, locale);
  const bool isDayFirst = std::min(format.find("%d"), format.find("%e")) < format.find("%m");
  ::freelocale(locale);
  return isDayFirst ? DateOrder::dayFirst : DateOrder::monthFirst;
}

bool readFlag(const std::string& cell) {
  if (isWordOf(yesWords, cell)) return true;
  if (isWordOf(noWords, cell)) return false;
  throw EntryRefused('"' + shortened(cell, 60) + "\" is neither yes nor no");
}

Value readCell(const EntryColumn& column, const std::string& cell, DateOrder order) {
  switch (column.type) {
    case CellType::date:
      if (const auto date = dateIn(cell, order)) return *date;
      refuse(column, cell, whatDateWanted(cell, order));
    case CellType::integer:
    case CellType::decimal:
      return readNumber(column, cell);
    case CellType::flag:
      return readFlag(cell);
    default:
      return cell;
  }
}

std::string withoutBlanks(const std::string& text) {
  const std::size_t start = std::min(text.find_first_not_of(blanks), text.size());
  return text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

std::string inOneLine(const std::string& text) {
  std::string line = replaceAll(text, "\r\n", " ");
  std::ranges::replace(line, '\n', ' ');
  std::ranges::replace(line, '\r', ' ');
  return line;
}

std::string shortened(const std::string& cell, std::size_t characters) {
  const std::string text = inOneLine(cell);
  std::size_t end = 0;
  std::size_t kept = 0;
  for (std::size_t at = 0, count = 1; at < text.size(); ++count) {
    at += utf8StepAt(text, at).length;
    if (count + 1 == characters) kept = at;
    if (count == characters) end = at;
  }
  return end == 0 || end == text.size() ? text : text.substr(0, kept) + "…";
}

std::string cellText(CellType type, const Value& value) {
  if (type != CellType::flag || value.isNull()) return textOf(value);
  return toFlag(value) ? "yes" : "no";
}

}  // namespace autonotify::host
