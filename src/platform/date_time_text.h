#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/DateTime.h"

namespace autonotify {

/// The ordinary text form of a date-time, which parseDateTime reads back unchanged: "2026-04-30" at
/// midnight, otherwise "2026-04-30 14:05:00". It sorts as the moments do for years 0 to 9999.
std::string dateTimeText(DateTime moment);

/// Reads a date, a time or both: "2026-04-30", "2026-04-30 14:05", "2026-04-30 14:05:00",
/// "2026-04-30T14:05:00", "14:05", "2:05 pm", "Apr 30 2026", "Thursday, April 30, 2026",
/// "30 Apr 2026", "4/30/2026" (month first). Names of months may be cut to three letters or more;
/// years have four digits and are 100 or later. A time alone stands on the zero date. Surrounding
/// blanks are allowed. Returns nothing for any other text and for a date that does not exist.
std::optional<DateTime> parseDateTime(std::string_view text);

}  // namespace autonotify
