#include "platform/utf8.h"

namespace autonotify {
namespace {

/// The forms of more than one byte: what the lead byte looks like and the least value that needs
/// it.
struct ByteForm {
  unsigned char mask;
  unsigned char mark;
  std::size_t length;
  char32_t least;
};
constexpr ByteForm forms[] = {
    {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

constexpr bool isScalar(char32_t value) {
  return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

const ByteForm* formOf(unsigned char lead) {
  for (const ByteForm& form : forms)
    if ((lead & form.mask) == form.mark) return &form;
  return nullptr;
}

}  // namespace

Utf8Step utf8StepAtLead(std::string_view text, std::size_t at) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byteAt(at);
  const Utf8Step illFormed{Utf8Step::illFormedBase + lead, 1};
  const ByteForm* form = formOf(lead);
  if (!form || text.size() - at < form->length) return illFormed;
  char32_t value = lead & static_cast<unsigned char>(~form->mask);
  for (std::size_t i = 1; i < form->length; ++i) {
    if ((byteAt(at + i) & 0xC0) != 0x80) return illFormed;
    value = value << 6 | (byteAt(at + i) & 0x3F);
  }
  if (value < form->least || !isScalar(value)) return illFormed;
  return {value, form->length};
}

void appendUtf8(std::string& text, char32_t character) {
  const auto append = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (!isScalar(character)) character = replacementCharacter;
  if (character < 0x80) return append(character);
  const ByteForm& form = forms[(character >= 0x800) + (character >= 0x10000)];
  append(form.mark | character >> (6 * (form.length - 1)));
  for (std::size_t left = form.length - 1; left-- > 0;)
    append(0x80 | (character >> (6 * left) & 0x3F));
}

}  // namespace autonotify
