#include "platform/rtf_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "platform/text.h"

namespace autonotify {
namespace {

using Kind = RtfToken::Kind;

constexpr std::array<bool, 256> makeTextEnds() {
  std::array<bool, 256> ends{};
  for (const char c : {'\\', '{', '}', '\r', '\n', '\0'})
    ends[static_cast<unsigned char>(c)] = true;
  return ends;
}
constexpr std::array<bool, 256> endsText = makeTextEnds();

constexpr bool isNothing(char c) {
  return c == '\r' || c == '\n' || c == '\0';
}

/// -1 for a character that is no hexadecimal digit.
constexpr int hexDigit(char c) {
  if (isAsciiDigit(c)) return c - '0';
  const char small = static_cast<char>(c | 0x20);
  return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

}  // namespace

std::string_view RtfReader::take(std::size_t length) {
  const std::string_view taken = rtf_.substr(at_, length);
  at_ += taken.size();
  return taken;
}

void RtfReader::endAtLastBrace() {
  rtf_ = rtf_.substr(0, rtf_.rfind('}') + 1);
}

RtfToken RtfReader::next() {
  while (at_ < rtf_.size() && isNothing(rtf_[at_])) ++at_;
  if (at_ == rtf_.size()) return {};
  switch (rtf_[at_]) {
    case '{':
      return {Kind::groupStart, take(1)};
    case '}':
      return {Kind::groupEnd, take(1)};
    case '\\':
      return readControl();
  }
  std::size_t end = at_ + 1;
  while (end < rtf_.size() && !endsText[static_cast<unsigned char>(rtf_[end])]) ++end;
  return {Kind::text, take(end - at_)};
}

RtfToken RtfReader::readControl() {
  ++at_;
  if (at_ == rtf_.size()) return {};
  const char c = rtf_[at_];
  if (isAsciiLetter(c)) return readWord();
  const std::string_view character = take(1);
  if (c == '\'') return readHexByte();
  if (c == '\\' || c == '{' || c == '}') return {Kind::text, character};
  if (c != '\r' && c != '\n') return {Kind::symbol, character};
  if (c == '\r' && rtf_.substr(at_).starts_with('\n')) ++at_;
  return {Kind::symbol, "\n"};
}

RtfToken RtfReader::readWord() {
  std::size_t end = at_;
  while (end < rtf_.size() && isAsciiLetter(rtf_[end])) ++end;
  RtfToken word{Kind::word, take(end - at_)};
  const bool negative = end + 1 < rtf_.size() && rtf_[end] == '-' && isAsciiDigit(rtf_[end + 1]);
  at_ += negative;
  constexpr std::int64_t limit = std::numeric_limits<int>::max();
  std::int64_t value = 0;
  for (; at_ < rtf_.size() && isAsciiDigit(rtf_[at_]); ++at_) {
    value = std::min(limit, value * 10 + (rtf_[at_] - '0'));
    word.hasParameter = true;
  }
  word.parameter = static_cast<int>(negative ? -value : value);
  if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;
  if (word.text == "bin") return readBinary(word.parameter);
  return word;
}

RtfToken RtfReader::readHexByte() {
  const RtfToken mark{Kind::symbol, "'"};
  if (rtf_.size() - at_ < 2) return mark;
  const int high = hexDigit(rtf_[at_]);
  const int low = hexDigit(rtf_[at_ + 1]);
  if (high < 0 || low < 0) return mark;
  return {Kind::hexByte, take(2), high * 16 + low, true};
}

RtfToken RtfReader::readBinary(int length) {
  return {Kind::binary, take(static_cast<std::size_t>(std::max(length, 0)))};
}

}  // namespace autonotify
