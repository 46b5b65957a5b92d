#pragma once

#include <string>

#include "platform/DateTime.h"

namespace autonotify {

/// The time between two moments in words, whichever comes first.
std::string getTimeDurationFieldValue(const DateTime& from, const DateTime& to);

// A province or state in its short and in its long form; one unknown comes back.
std::string getAbbreviatedProvince(const std::string& province);
std::string getFullProvinceString(const std::string& province);

}  // namespace autonotify
