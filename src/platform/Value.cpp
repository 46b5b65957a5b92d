#include "platform/Value.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

#include "platform/PlatformError.h"
#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr double secondsPerDay = 86400;

[[noreturn]] void failNull() {
  throw PlatformError(error_number::invalidUseOfNull, "Invalid use of Null");
}
[[noreturn]] void failType() {
  throw PlatformError(error_number::typeMismatch, "Type mismatch");
}
[[noreturn]] void failOverflow() {
  throw PlatformError(error_number::overflow, "Overflow");
}

template <class... Readers>
struct Overloaded : Readers... {
  using Readers::operator()...;
};
template <class... Readers>
Overloaded(Readers...) -> Overloaded<Readers...>;

struct ReadNumber {
  double number = 0;
  std::errc fault{};
};

/// One decimal number and nothing else: the words that stand for infinities are none.
ReadNumber readNumber(std::string_view text) {
  constexpr ReadNumber noNumber{0, std::errc::invalid_argument};
  text = trim(text);
  const bool hasSign = text.starts_with('+') || text.starts_with('-');
  const std::string_view digits = text.substr(hasSign);
  if (digits.find_first_not_of("0123456789.") == 0) return noNumber;
  if (text.starts_with('+')) text = digits;
  ReadNumber result;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), result.number);
  if (end != text.data() + text.size()) return noNumber;
  result.fault = fault;
  return result;
}

double numberOf(const std::string& text) {
  const ReadNumber read = readNumber(text);
  if (read.fault == std::errc::result_out_of_range) failOverflow();
  if (read.fault != std::errc{}) failType();
  return read.number;
}

/// Days and part of a day. Before the zero date the days count down while the part still counts
/// up from midnight: -1.25 is six in the morning of the day before.
double serialOf(DateTime moment) {
  const double part = moment.seconds() / secondsPerDay;
  return moment.days() < 0 ? moment.days() - part : moment.days() + part;
}

DateTime momentOf(double serial) {
  constexpr DateTime first = DateTime::of(100, 1, 1);
  constexpr DateTime last = DateTime::of(9999, 12, 31);
  if (!(serial > first.days() - 1.0 && serial < last.days() + 1.0)) failOverflow();
  const double days = std::trunc(serial);
  const auto seconds =
      static_cast<std::int32_t>(std::lround(std::fabs(serial - days) * secondsPerDay));
  const bool nextDay = seconds == static_cast<std::int32_t>(secondsPerDay);
  const DateTime moment =
      DateTime::fromSerial(static_cast<std::int32_t>(days) + nextDay, nextDay ? 0 : seconds);
  if (moment.dateOnly() > last) failOverflow();
  return moment;
}

/// Rounds halves to even. Not-a-number is outside of every range.
template <class Integer>
Integer rounded(double number) {
  const double whole = std::nearbyint(number);
  using Limits = std::numeric_limits<Integer>;
  if (!(whole >= Limits::min() && whole <= Limits::max())) failOverflow();
  return static_cast<Integer>(whole);
}

/// An integer within the range needs no way over a double.
template <class Integer>
Integer integerOf(const Value& value) {
  const auto* whole = value.getIf<std::int64_t>();
  if (whole && std::in_range<Integer>(*whole)) return static_cast<Integer>(*whole);
  return rounded<Integer>(toDouble(value));
}

/// The fewest digits that read back as the same number, with a power of ten only where the plain
/// form would be unwieldy.
std::string textOf(double number) {
  if (number == 0) return "0";
  const double size = std::fabs(number);
  const auto form =
      size >= 1e-5 && size < 1e15 ? std::chars_format::fixed : std::chars_format::scientific;
  char digits[64];
  return {digits, std::to_chars(std::begin(digits), std::end(digits), number, form).ptr};
}

}  // namespace

void Value::copyText(const Value& other) {
  beText(other.text_);
}

void Value::moveText(Value& other) noexcept {
  if (this == &other) return;
  if (isText_) text_.~basic_string();
  isText_ = false;
  take(other);
}

std::uint8_t toByte(const Value& value) {
  return integerOf<std::uint8_t>(value);
}

std::int16_t toInteger16(const Value& value) {
  return integerOf<std::int16_t>(value);
}

std::int32_t otherToInteger(const Value& value) {
  return rounded<std::int32_t>(toDouble(value));
}

double toDouble(const Value& value) {
  return value.visit(Overloaded{
      [](Null) -> double { failNull(); },
      [](bool flag) { return flag ? -1.0 : 0.0; },
      [](std::int64_t number) { return static_cast<double>(number); },
      [](double number) { return number; },
      [](DateTime moment) { return serialOf(moment); },
      [](const std::string& text) { return numberOf(text); },
  });
}

bool otherToFlag(const Value& value) {
  if (const auto* text = value.getIf<std::string>()) {
    if (equalIgnoreCase(trim(*text), "True")) return true;
    if (equalIgnoreCase(trim(*text), "False")) return false;
  }
  return toDouble(value) != 0;
}

DateTime toDateTime(const Value& value) {
  if (const auto* moment = value.getIf<DateTime>()) return *moment;
  const auto* text = value.getIf<std::string>();
  if (!text) return momentOf(toDouble(value));
  const auto moment = parseDateTime(*text);
  if (!moment) failType();
  return *moment;
}

std::string toText(const Value& value) {
  return value.visit(Overloaded{
      [](Null) -> std::string { failNull(); },
      [](bool flag) { return std::string(flag ? "True" : "False"); },
      [](std::int64_t number) { return std::to_string(number); },
      [](double number) { return textOf(number); },
      [](DateTime moment) { return dateTimeText(moment); },
      [](const std::string& text) { return text; },
  });
}

std::string takeText(Value& value) {
  auto* const text = value.getIf<std::string>();
  return text ? std::move(*text) : toText(value);
}

bool isNumeric(const std::string& text) {
  return readNumber(text).fault != std::errc::invalid_argument;
}

}  // namespace autonotify
