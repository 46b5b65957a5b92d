#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/DateTime.h"

namespace autonotify::host {

/// The day that a person has typed, in any form that parseDateTime takes; a time beside it is left
/// out. Nothing for any other text, a time alone among them.
std::optional<DateTime> readDate(std::string_view text);

/// What to answer then: "\"tomorrow\" is no date; write it as 2026-04-30".
std::string dateFault(std::string_view text);

/// The day as people read it: "2026-04-30"; "-" for the zero date.
std::string dayText(DateTime moment);

}  // namespace autonotify::host
