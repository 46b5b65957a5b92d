#pragma once

#include <chrono>
#include <compare>
#include <cstdint>

namespace autonotify {

/// A calendar day and a time of day, to the second, without a time zone.
///
/// Stored as days since 1899-12-30 and seconds since midnight. The default value, 1899-12-30 at
/// midnight, is the zero date and means "none found". The calendar is the proleptic Gregorian one.
class DateTime {
 public:
  constexpr DateTime() = default;

  /// `days` since 1899-12-30, `seconds` since midnight in [0, 86400).
  static constexpr DateTime fromSerial(std::int32_t days, std::int32_t seconds = 0) {
    DateTime result;
    result.days_ = days;
    result.seconds_ = seconds;
    return result;
  }

  /// Requires: a date that exists, hour 0-23, minute and second 0-59.
  static constexpr DateTime of(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                               int second = 0) {
    const std::chrono::sys_days date =
        std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day};
    return fromSerial(static_cast<std::int32_t>((date - epoch()).count()),
                      hour * 3600 + minute * 60 + second);
  }

  constexpr std::int32_t days() const { return days_; }
  constexpr std::int32_t seconds() const { return seconds_; }
  constexpr bool isZero() const { return days_ == 0 && seconds_ == 0; }

  constexpr std::chrono::year_month_day date() const { return epoch() + std::chrono::days{days_}; }
  constexpr int year() const { return static_cast<int>(date().year()); }
  constexpr unsigned month() const { return static_cast<unsigned>(date().month()); }
  constexpr unsigned day() const { return static_cast<unsigned>(date().day()); }
  constexpr int hour() const { return seconds_ / 3600; }
  constexpr int minute() const { return seconds_ / 60 % 60; }
  constexpr int second() const { return seconds_ % 60; }

  /// Sunday is 1, Saturday is 7.
  constexpr int weekday() const {
    return static_cast<int>(std::chrono::weekday{std::chrono::sys_days{date()}}.c_encoding()) + 1;
  }

  /// The same time of day, `days` later; earlier for a negative number.
  constexpr DateTime addDays(std::int32_t days) const { return fromSerial(days_ + days, seconds_); }
  /// Midnight of the same day.
  constexpr DateTime dateOnly() const { return fromSerial(days_); }
  /// Whole minutes since 1899-12-30 00:00.
  constexpr std::int64_t totalMinutes() const { return std::int64_t{days_} * 1440 + seconds_ / 60; }

  friend constexpr auto operator<=>(const DateTime&, const DateTime&) = default;

 private:
  static constexpr std::chrono::sys_days epoch() {
    return std::chrono::year{1899} / std::chrono::December / 30;
  }

  std::int32_t days_ = 0;
  std::int32_t seconds_ = 0;
};

}  // namespace autonotify
