#pragma once

#include <array>
#include <string_view>

namespace autonotify {

inline constexpr std::array<std::string_view, 12> monthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

/// Sunday first.
inline constexpr std::array<std::string_view, 7> weekdayNames = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

/// How many letters of a name its short form takes.
inline constexpr std::size_t shortNameLength = 3;

}  // namespace autonotify
