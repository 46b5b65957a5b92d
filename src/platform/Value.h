#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

#include "platform/DateTime.h"

namespace autonotify {

/// The key of a row, or -1 for none. An id below 0 is never looked up.
using Id = std::int32_t;
inline constexpr Id noId = -1;

struct Null {
  friend constexpr bool operator==(Null, Null) = default;
};

/// A value of any type as the database and the host's lists hold it: null, flag, integer, double,
/// date-time or text (UTF-8).
class Value {
 public:
  Value() = default;
  // When a copy finds no memory, libstdc++ 12 would destroy a content that was never made.
  Value(const Value& other) : Value() { held_ = other.held_; }
  Value(Value&&) = default;
  Value& operator=(const Value&) = default;
  Value& operator=(Value&&) = default;
  Value(Null) {}
  Value(bool flag) : held_(flag) {}
  Value(std::int16_t number) : held_(std::int64_t{number}) {}
  Value(std::int32_t number) : held_(std::int64_t{number}) {}
  Value(std::int64_t number) : held_(number) {}
  Value(double number) : held_(number) {}
  Value(DateTime moment) : held_(moment) {}
  Value(std::string text) : held_(std::move(text)) {}
  Value(const char* text) : held_(std::string(text)) {}

  bool isNull() const { return std::holds_alternative<Null>(held_); }

  /// The held alternative, or nullptr when another one is held.
  template <class T>
  const T* getIf() const {
    return std::get_if<T>(&held_);
  }
  template <class T>
  T* getIf() {
    return std::get_if<T>(&held_);
  }

  template <class Visitor>
  decltype(auto) visit(Visitor&& visitor) const {
    return std::visit(std::forward<Visitor>(visitor), held_);
  }

  /// Same kind and same content; no conversion takes place.
  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<Null, bool, std::int64_t, double, DateTime, std::string> held_;
};

// Conversions. All throw PlatformError: invalidUseOfNull (94) for null, typeMismatch (13) for a
// content that cannot be read so, overflow (6) for a number outside the target.
//
// Where a number is asked for, a flag counts as -1 or 0 and a date-time as its serial of days; text
// is read as one whole decimal number ("12", "-.5", "1e3"), surrounding blanks allowed; a fraction
// is rounded to the nearest integer, halves to even.

std::uint8_t toByte(const Value& value);
std::int16_t toInteger16(const Value& value);
std::int32_t toInteger(const Value& value);
double toDouble(const Value& value);

/// A number is true unless zero; the texts "True" and "False" are read in any case.
bool toFlag(const Value& value);

/// A text must hold a date or a time (see parseDateTime); a number is a serial of days within the
/// years 100 to 9999, read to the second.
DateTime toDateTime(const Value& value);

/// A flag becomes "True" or "False"; a double takes the fewest digits that read back as the same
/// number, without a decimal point when it is integral; a date-time takes its ordinary text form
/// (see dateTimeText).
std::string toText(const Value& value);

/// True when the whole text is one decimal number, surrounding blanks allowed.
bool isNumeric(const std::string& text);

}  // namespace autonotify
