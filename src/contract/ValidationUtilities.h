#pragma once

#include <cstdint>
#include <string>

#include "contract/errorClass.h"
#include "platform/DateTime.h"
#include "platform/HostObject.h"

namespace autonotify {

/// Checks and texts of dates and durations.
class ValidationUtilities : public HostObject {
 public:
  static constexpr const char* className = "ValidationUtilities";
  /// Not owned; null takes it away.
  virtual void put_errorClass(errorClass* value) = 0;
  /// Saturday or Sunday.
  virtual bool isWeekend(DateTime date) = 0;
  virtual bool isDateText(const std::string& text) = 0;
  /// False, with `date` untouched, when the text is no date.
  virtual bool parseDateText(const std::string& text, DateTime& date) = 0;
  virtual bool isValidYear(std::int16_t year) = 0;
  /// Such as "1 hr 30 min".
  virtual std::string getDurationText(int minutes) = 0;
};

}  // namespace autonotify
