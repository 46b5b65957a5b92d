#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
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
  Value() : flat_() {}
  Value(const Value& other) {
    if (other.isText_) {
      copyText(other);
    } else {
      std::construct_at(&flat_, other.flat_);
    }
  }
  Value(Value&& other) noexcept { take(other); }
  Value& operator=(const Value& other) {
    if (isText_ || other.isText_) return *this = Value(other);
    flat_ = other.flat_;
    return *this;
  }
  Value& operator=(Value&& other) noexcept {
    if (isText_ || other.isText_) {
      moveText(other);
    } else {
      flat_ = other.flat_;
    }
    return *this;
  }
  ~Value() {
    if (isText_) text_.~basic_string();
  }
  Value(Null) : flat_() {}
  Value(bool flag) : flat_(flag) {}
  Value(std::int16_t number) : flat_(std::int64_t{number}) {}
  Value(std::int32_t number) : flat_(std::int64_t{number}) {}
  Value(std::int64_t number) : flat_(number) {}
  Value(double number) : flat_(number) {}
  Value(DateTime moment) : flat_(moment) {}
  Value(std::string text) { beText(std::move(text)); }
  Value(const char* text) : Value(std::string(text)) {}

  bool isNull() const { return !isText_ && std::holds_alternative<Null>(flat_); }

  /// The held alternative, or nullptr when another one is held.
  template <class T>
  const T* getIf() const {
    if constexpr (std::is_same_v<T, std::string>) {
      return isText_ ? &text_ : nullptr;
    } else {
      return isText_ ? nullptr : std::get_if<T>(&flat_);
    }
  }
  template <class T>
  T* getIf() {
    return const_cast<T*>(std::as_const(*this).template getIf<T>());
  }

  template <class Visitor>
  decltype(auto) visit(Visitor&& visitor) const {
    if (isText_) return visitor(text_);
    return std::visit(visitor, flat_);
  }

  /// Same kind and same content; no conversion takes place.
  friend bool operator==(const Value& left, const Value& right) {
    if (left.isText_ || right.isText_)
      return left.isText_ && right.isText_ && left.text_ == right.text_;
    return left.flat_ == right.flat_;
  }

 private:
  using Flat = std::variant<Null, bool, std::int64_t, double, DateTime>;
  static_assert(std::is_trivially_copyable_v<Flat>);

  // Where a text takes part.
  void copyText(const Value& other);
  void moveText(Value& other) noexcept;

  // Both require: it holds nothing yet.
  template <class String>
  void beText(String&& text) {
    std::construct_at(&text_, std::forward<String>(text));
    isText_ = true;
  }
  /// Leaves a text that holds anything.
  void take(Value& other) noexcept {
    if (other.isText_) {
      beText(std::move(other.text_));
    } else {
      std::construct_at(&flat_, other.flat_);
    }
  }

  /// All but texts is copied as it lies.
  union {
    Flat flat_;
    std::string text_;
  };
  bool isText_ = false;
};

// Conversions. All throw PlatformError: invalidUseOfNull (94) for null, typeMismatch (13) for a
// content that cannot be read so, overflow (6) for a number outside the target.
//
// Where a number is asked for, a flag counts as -1 or 0 and a date-time as its serial of days; text
// is read as one whole decimal number ("12", "-.5", "1e3"), surrounding blanks allowed; a fraction
// is rounded to the nearest integer, halves to even.

std::uint8_t toByte(const Value& value);
std::int16_t toInteger16(const Value& value);
double toDouble(const Value& value);

/// What toInteger gives of a value that is no integer of 32 bits.
std::int32_t otherToInteger(const Value& value);
inline std::int32_t toInteger(const Value& value) {
  const auto* whole = value.getIf<std::int64_t>();
  const bool isShort = whole && *whole == static_cast<std::int32_t>(*whole);
  return isShort ? static_cast<std::int32_t>(*whole) : otherToInteger(value);
}

/// What toFlag gives of a value that is no flag.
bool otherToFlag(const Value& value);
/// A number is true unless zero; the texts "True" and "False" are read in any case.
inline bool toFlag(const Value& value) {
  const auto* flag = value.getIf<bool>();
  return flag ? *flag : otherToFlag(value);
}

/// A text must hold a date or a time (see parseDateTime); a number is a serial of days within the
/// years 100 to 9999, read to the second.
DateTime toDateTime(const Value& value);

/// A flag becomes "True" or "False"; a double takes the fewest digits that read back as the same
/// number, without a decimal point when it is integral; a date-time takes its ordinary text form
/// (see dateTimeText).
std::string toText(const Value& value);
/// The same; a text is taken out of the value.
std::string takeText(Value& value);

/// True when the whole text is one decimal number, surrounding blanks allowed.
bool isNumeric(const std::string& text);

}  // namespace autonotify
