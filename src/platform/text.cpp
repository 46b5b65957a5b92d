#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "platform/utf8.h"

namespace autonotify {
namespace {

constexpr std::size_t npos = std::string_view::npos;

/// Capitals `first` to `last`, `stride` apart; the small letter stands `distance` above its
/// capital.
struct CasePairs {
  char16_t first;
  char16_t last;
  int stride;
  int distance;
};

// No pair changes the length in bytes, and none leaves ASCII. Positions found in a folded text are
// therefore positions in the text itself. That is why U+017F (long s) and the dotted and dotless
// Turkish letters stand alone.
constexpr CasePairs casePairs[] = {
    {'A', 'Z', 1, 32},     {0xC0, 0xD6, 1, 32},   {0xD8, 0xDE, 1, 32},   {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1},  {0x139, 0x147, 2, 1},  {0x14A, 0x176, 2, 1},  {0x178, 0x178, 1, -121},
    {0x179, 0x17D, 2, 1},  {0x200, 0x21E, 2, 1},  {0x386, 0x386, 1, 38}, {0x388, 0x38A, 1, 37},
    {0x38C, 0x38C, 1, 64}, {0x38E, 0x38F, 1, 63}, {0x391, 0x3A1, 1, 32}, {0x3A3, 0x3AB, 1, 32},
    {0x400, 0x40F, 1, 80}, {0x410, 0x42F, 1, 32}, {0x460, 0x480, 2, 1},  {0x48A, 0x4BE, 2, 1},
    {0x4C0, 0x4C0, 1, 15}, {0x4C1, 0x4CD, 2, 1},  {0x4D0, 0x52E, 2, 1},
};
constexpr char16_t finalSigma = 0x3C2;
constexpr char16_t capitalSigma = 0x3A3;

using CaseTable = std::array<char16_t, 0x530>;

struct CaseTables {
  CaseTable upper{};
  CaseTable lower{};
  /// One representative, a small letter, of all characters that differ in case alone.
  CaseTable folded{};
};

constexpr CaseTables makeCaseTables() {
  CaseTables tables;
  for (std::size_t i = 0; i < tables.upper.size(); ++i)
    tables.upper[i] = tables.lower[i] = static_cast<char16_t>(i);
  for (const CasePairs& pairs : casePairs) {
    for (int capital = pairs.first; capital <= pairs.last; capital += pairs.stride) {
      const int small = capital + pairs.distance;
      tables.lower[static_cast<std::size_t>(capital)] = static_cast<char16_t>(small);
      tables.upper[static_cast<std::size_t>(small)] = static_cast<char16_t>(capital);
    }
  }
  tables.upper[finalSigma] = capitalSigma;
  for (std::size_t i = 0; i < tables.folded.size(); ++i)
    tables.folded[i] = tables.lower[tables.upper[i]];
  return tables;
}

constexpr CaseTables cases = makeCaseTables();

constexpr char32_t mapped(const CaseTable& table, char32_t character) {
  return character < table.size() ? table[character] : character;
}

constexpr bool isAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

constexpr char foldedAscii(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

std::string converted(std::string_view text, const CaseTable& table) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Step step = utf8StepAt(text, at);
    const char32_t character = mapped(table, step.value);
    if (character == step.value) {
      result.append(text, at, step.length);
    } else {
      appendUtf8(result, character);
    }
    at += step.length;
  }
  return result;
}

/// Whether `sought` stands at `at`. Requires: it fits in there.
bool standsAt(std::string_view text, std::size_t at, std::string_view sought) {
  for (std::size_t i = 0; i < sought.size();) {
    const char left = text[at + i];
    const char right = sought[i];
    if (isAscii(left) || isAscii(right)) {
      if (foldedAscii(left) != foldedAscii(right)) return false;
      ++i;
      continue;
    }
    const Utf8Step leftStep = utf8StepAt(text, at + i);
    const Utf8Step rightStep = utf8StepAt(sought, i);
    if (mapped(cases.folded, leftStep.value) != mapped(cases.folded, rightStep.value)) return false;
    i += rightStep.length;
  }
  return true;
}

/// The two first bytes that a character may begin with in either case.
std::array<char, 2> firstBytesAt(std::string_view text, std::size_t at) {
  const char32_t folded = mapped(cases.folded, utf8StepAt(text, at).value);
  if (folded >= Utf8Step::illFormedBase) return {text[at], text[at]};
  std::string bytes;
  appendUtf8(bytes, folded);
  const char small = bytes[0];
  bytes.clear();
  appendUtf8(bytes, mapped(cases.upper, folded));
  return {small, bytes[0]};
}

/// Offset of a character without case that texts hold seldom, or else of the first.
std::size_t seldomCharacterOf(std::string_view sought) {
  const auto isSeldom = [](char c) {
    return isAscii(c) && c != ' ' && c != '\\' && !(foldedAscii(c) >= 'a' && foldedAscii(c) <= 'z');
  };
  const auto found = std::find_if(sought.begin(), sought.end(), isSeldom);
  return found == sought.end() ? 0 : static_cast<std::size_t>(found - sought.begin());
}

/// Offset of the character that is the seldomest by a sample of the text.
std::size_t seldomestCharacterOf(std::string_view sought, std::string_view text) {
  constexpr std::size_t sampleSize = 512;
  std::array<std::uint16_t, 256> counts{};
  const auto countOf = [&](char byte) -> auto& {
    return counts[static_cast<unsigned char>(byte)];
  };
  for (std::size_t i = 0; i < sampleSize; ++i) ++countOf(text[i * text.size() / sampleSize]);
  std::size_t best = 0;
  std::size_t least = 2 * sampleSize + 1;
  for (std::size_t at = 0; at < sought.size(); at += utf8StepAt(sought, at).length) {
    const auto [small, capital] = firstBytesAt(sought, at);
    const std::size_t count = std::size_t{countOf(small)} + countOf(capital);
    if (count >= least) continue;
    best = at;
    least = count;
  }
  return best;
}

/// Offset of the character to look for first.
std::size_t anchorOf(std::string_view sought, std::string_view text) {
  constexpr std::size_t longText = 16 * 1024;
  return text.size() < longText ? seldomCharacterOf(sought) : seldomestCharacterOf(sought, text);
}

/// Goes through the places of a text where `sought` stands in any case. In either case the anchor
/// has one of two first bytes; each is looked for on its own, and a place once found is kept until
/// it is passed.
class Finder {
 public:
  /// Requires: `sought` isn't empty, from <= text.size().
  Finder(std::string_view text, std::string_view sought, std::size_t from)
      : text_(text),
        sought_(sought),
        anchor_(anchorOf(sought, text)),
        bytes_(firstBytesAt(sought, anchor_)) {
    next_[0] = text.find(bytes_[0], from + anchor_);
    next_[1] = bytes_[0] == bytes_[1] ? npos : text.find(bytes_[1], from + anchor_);
  }

  /// The first place at or after `from`, which never falls; npos when there is none.
  std::size_t next(std::size_t from) {
    for (;; ++from) {
      const std::size_t anchorAt = nextAnchor(from + anchor_);
      if (anchorAt == npos) return npos;
      from = anchorAt - anchor_;
      if (text_.size() - from < sought_.size()) return npos;
      if (standsAt(text_, from, sought_)) return from;
    }
  }

 private:
  std::size_t nextAnchor(std::size_t from) {
    for (std::size_t i = 0; i < bytes_.size(); ++i)
      if (next_[i] < from) next_[i] = text_.find(bytes_[i], from);
    return std::min(next_[0], next_[1]);
  }

  std::string_view text_;
  std::string_view sought_;
  std::size_t anchor_;
  std::array<char, 2> bytes_;
  std::array<std::size_t, 2> next_{};
};

/// `find(from)` gives the next occurrence, or npos.
template <class Find>
std::string replaced(std::string_view text, std::size_t soughtSize, std::string_view with,
                     Find find) {
  std::string result;
  std::size_t copied = 0;
  for (std::size_t at = find(0); at != npos; at = find(copied)) {
    result.append(text, copied, at - copied).append(with);
    copied = at + soughtSize;
  }
  return result.append(text, copied);
}

/// Whether eight characters from `at` on are ASCII, looked at together.
bool isAsciiAt(std::string_view text, std::size_t at) {
  std::uint64_t letters = 0;
  if (text.size() - at < sizeof letters) return false;
  std::memcpy(&letters, text.data() + at, sizeof letters);
  return (letters & 0x8080808080808080) == 0;
}

}  // namespace

std::string upperCase(std::string_view text) {
  return converted(text, cases.upper);
}

std::string lowerCase(std::string_view text) {
  return converted(text, cases.lower);
}

std::string_view trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool equalIgnoreCase(std::string_view left, std::string_view right) {
  return left.size() == right.size() && standsAt(left, 0, right);
}

std::size_t findIgnoreCase(std::string_view text, std::string_view sought, std::size_t from) {
  if (sought.empty()) return from <= text.size() ? from : npos;
  if (from > text.size() || text.size() - from < sought.size()) return npos;
  return Finder(text, sought, from).next(from);
}

std::string replaceAll(std::string_view text, std::string_view sought, std::string_view with) {
  if (sought.empty()) return std::string(text);
  const auto find = [&](std::size_t from) { return text.find(sought, from); };
  return replaced(text, sought.size(), with, find);
}

std::string replaceAllIgnoreCase(std::string_view text, std::string_view sought,
                                 std::string_view with) {
  if (sought.empty()) return std::string(text);
  Finder finder(text, sought, 0);
  return replaced(text, sought.size(), with, [&](std::size_t from) { return finder.next(from); });
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count)
    at += isAscii(text[at]) ? 1 : utf8StepAt(text, at).length;
  return count;
}

bool isValidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    if (isAsciiAt(text, at)) {
      at += sizeof(std::uint64_t);
      continue;
    }
    const Utf8Step step = utf8StepAt(text, at);
    if (!step.isWellFormed()) return false;
    at += step.length;
  }
  return true;
}

}  // namespace autonotify
