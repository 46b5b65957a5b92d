#pragma once

#include "contract/ValidationUtilities.h"

namespace autonotify::host {

class HostValidationUtilities : public ValidationUtilities {
 public:
  void put_errorClass(errorClass* value) override { errors_ = value; }
  bool isWeekend(DateTime date) override;
  /// What parseDateText reads.
  bool isDateText(const std::string& text) override;
  /// Reads what parseDateTime reads, also behind an English weekday ("Thursday, April 30, 2026"),
  /// which need not be the right one: people edit the date and leave the weekday. A time alone and
  /// the zero date are no dates.
  bool parseDateText(const std::string& text, DateTime& date) override;
  /// 1900 to 2099.
  bool isValidYear(std::int16_t year) override;
  /// "1 hr 30 min", "31 min", "2 hr", "0 min"; a minus sign in front for a negative duration.
  std::string getDurationText(int minutes) override;

 private:
  errorClass* errors_ = nullptr;
};

}  // namespace autonotify::host
