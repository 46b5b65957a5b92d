#pragma once

#include <cstdint>
#include <optional>

namespace autonotify {

/// One of the code pages known here: the Windows pages, 437, 850, 852, 866 and those of Mac OS.
using CodePageIndex = std::uint8_t;

inline constexpr CodePageIndex codePage1252 = 0;

/// Page 1252 for a number that is not known.
CodePageIndex codePageIndexOf(int number);

/// The page of a font's character set. Nothing for the set that follows the document (1) and for
/// those that are not known.
std::optional<CodePageIndex> codePageIndexOfCharacterSet(int characterSet);

/// What characterOf gives for a byte that stands for nothing without the one behind it.
inline constexpr char32_t firstOfPair = 0xFFFF;

/// Bytes below 0x80 are ASCII in every page; a byte without a character gives U+FFFD, in page 1252
/// the control character of the same value.
char32_t characterOf(unsigned char byte, CodePageIndex page);
/// The character of a pair, U+FFFD for none.
char32_t characterOf(unsigned char first, unsigned char second, CodePageIndex page);

}  // namespace autonotify
