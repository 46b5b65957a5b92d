#pragma once

#include <cstdint>
#include <optional>

namespace autonotify {

/// One of the single-byte code pages known here: 1252, 1250, 1251, 1253, 1254, 1257, 437 and 850.
using CodePageIndex = std::uint8_t;

inline constexpr CodePageIndex codePage1252 = 0;

/// Page 1252 for a number that is not known.
CodePageIndex codePageIndexOf(int number);

/// The page of a font's character set. Nothing for the sets that follow the document (0, 1) and for
/// those that are not known.
std::optional<CodePageIndex> codePageIndexOfCharacterSet(int characterSet);

/// Bytes below 0x80 are ASCII in every page; a byte without a character gives U+FFFD, in page 1252
/// the control character of the same value.
char32_t characterOf(unsigned char byte, CodePageIndex page);

}  // namespace autonotify
