#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace autonotify {

// Text is UTF-8. Case folding is simple (one character to one) and covers ASCII, Latin-1, Latin
// Extended-A, Greek and Cyrillic; it never changes a length in bytes. Positions are byte offsets;
// lengths are counted in characters where a function says so. Bytes that are no UTF-8 are kept as
// they are and count as one character each.

std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);
/// Blanks (U+0020) off both ends.
std::string_view trim(std::string_view text);

bool equalIgnoreCase(std::string_view left, std::string_view right);

/// Byte offset of the first occurrence at or after `from`, or npos.
std::size_t findIgnoreCase(std::string_view text, std::string_view sought, std::size_t from = 0);

/// Every occurrence from left to right, never looking into what was put in. An empty `sought`
/// changes nothing.
std::string replaceAll(std::string_view text, std::string_view sought, std::string_view with);
std::string replaceAllIgnoreCase(std::string_view text, std::string_view sought,
                                 std::string_view with);

constexpr bool isAsciiDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool isAsciiLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::size_t characterCount(std::string_view text);
bool isValidUtf8(std::string_view text);

}  // namespace autonotify
