#include <cstdint>

#include "platform/code_pages.h"
#include "platform/rich_text.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

void appendHexEscape(std::string& text, int byte) {
  constexpr char digits[] = "0123456789abcdef";
  text.append("\\'").append({digits[byte / 16], digits[byte % 16]});
}

/// `\uN` takes signed 16-bit numbers, so that characters beyond U+FFFF go as two halves.
void appendUnicodeEscape(std::string& text, char32_t character) {
  if (character > 0xFFFF) {
    appendUnicodeEscape(text, 0xD800 + ((character - 0x10000) >> 10));
    character = 0xDC00 + (character & 0x3FF);
  }
  text.append("\\u").append(std::to_string(static_cast<std::int16_t>(character))).append("?");
}

}  // namespace

std::string escapeForRichText(std::string_view plainText, const RichTextBreaks& breaks) {
  std::string result;
  result.reserve(plainText.size());
  for (std::size_t at = 0; at < plainText.size();) {
    const Utf8Step step = utf8StepAt(plainText, at);
    const char c = plainText[at];
    at += step.length;
    if (c == '\r' || c == '\n') {
      if (c == '\r' && plainText.substr(at).starts_with('\n')) ++at;
      result += breaks.line;
    } else if (c == '\t') {
      result += breaks.tab;
    } else if (c == '\\' || c == '{' || c == '}') {
      result.append({'\\', c});
    } else if (step.value < 0x80) {
      result += c;
    } else if (!step.isWellFormed()) {
      appendHexEscape(result, static_cast<unsigned char>(c));
    } else if (const int byte = codePage1252Of(step.value); byte >= 0) {
      appendHexEscape(result, byte);
    } else {
      appendUnicodeEscape(result, step.value);
    }
  }
  return result;
}

std::string escapeForRichText(std::string_view plainText) {
  return escapeForRichText(plainText, {"\\par \r\n", "\t"});
}

int codePage1252Of(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
    return static_cast<int>(character);
  for (int byte = 0x80; byte < 0xA0; ++byte)
    if (characterOfCodePage1252(static_cast<unsigned char>(byte)) == character) return byte;
  return -1;
}

char32_t characterOfCodePage1252(unsigned char byte) {
  return characterOf(byte, codePage1252);
}

}  // namespace autonotify
