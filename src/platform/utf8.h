#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace autonotify {

inline constexpr char32_t replacementCharacter = 0xFFFD;

/// One step through a text. A byte that begins no well-formed sequence is a step of length 1 whose
/// `value` is illFormedBase plus the byte, so that two different bytes never compare equal.
struct Utf8Step {
  static constexpr char32_t illFormedBase = 0x110000;

  char32_t value;
  std::size_t length;

  bool isWellFormed() const { return value < illFormedBase; }
};

/// The step at a byte above 0x7F.
Utf8Step utf8StepAtLead(std::string_view text, std::size_t at);

/// The character at byte offset `at`. Overlong forms, surrogates and values above U+10FFFF are
/// ill-formed. Requires: at < text.size().
inline Utf8Step utf8StepAt(std::string_view text, std::size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  return lead < 0x80 ? Utf8Step{lead, 1} : utf8StepAtLead(text, at);
}

/// Appends the character; a surrogate or a value above U+10FFFF becomes U+FFFD.
void appendUtf8(std::string& text, char32_t character);

}  // namespace autonotify
