#include "merge/templates/rewrite_list.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/text.h"

namespace autonotify {
namespace {

constexpr char folded(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

constexpr char capital(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

constexpr std::size_t indexOf(char byte) {
  return static_cast<unsigned char>(byte);
}

/// Whether the small-letter text `sought` stands at `at`.
bool standsAt(std::string_view text, std::size_t at, std::string_view sought) {
  if (text.size() - at < sought.size()) return false;
  for (std::size_t i = 0; i < sought.size(); ++i)
    if (folded(text[at + i]) != sought[i]) return false;
  return true;
}

std::string commonPrefix(std::string_view left, std::string_view right) {
  const auto end = std::ranges::mismatch(left, right).in1;
  return {left.begin(), end};
}

bool isSeldom(char byte) {
  const bool isLetter = folded(byte) >= 'a' && folded(byte) <= 'z';
  return !isLetter && byte != ' ' && byte != '\\';
}

// Texts that differ in case alone have the same numbers.

constexpr std::size_t longestHead = sizeof(std::uint64_t);

/// Of the first `size` bytes, eight at most, or of those that there are; below 256.
std::size_t headNumber(std::string_view text, std::size_t size) {
  std::uint64_t head = 0;
  std::memcpy(&head, text.data(), std::min(size, text.size()));
  constexpr std::uint64_t caseBits = 0x2020202020202020;
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
  return static_cast<std::size_t>(((head | caseBits) * factor) >> 56);
}

constexpr std::size_t pieceSize = sizeof(std::uint32_t);

/// Below 1024.
std::size_t pieceNumber(const char* text) {
  std::uint32_t piece = 0;
  std::memcpy(&piece, text, pieceSize);
  constexpr std::uint32_t caseBits = 0x20202020;
  constexpr std::uint32_t factor = 0x9E3779B1;
  return ((piece | caseBits) * factor) >> 22;
}

}  // namespace

RewriteList::RewriteList(std::vector<Rewrite> rewrites) : rewrites_(std::move(rewrites)) {
  familyOf_.fill(noFamily);
  for (const Rewrite& rewrite : rewrites_) {
    std::string& sought = sought_.emplace_back(rewrite.from);
    std::ranges::transform(sought, sought.begin(), folded);
    std::string& prefix = familyOf(sought).prefix;
    prefix = commonPrefix(prefix, sought.substr(0, sought.size() - 1));
  }
  for (const std::string& sought : sought_) {
    Family& family = familyOf(sought);
    family.headSize = std::min(family.headSize, sought.size() - family.prefix.size());
  }
  for (std::size_t i = 0; i < sought_.size(); ++i) {
    Family& family = familyOf(sought_[i]);
    const std::string_view rest = std::string_view(sought_[i]).substr(family.prefix.size());
    family.members[headNumber(rest, family.headSize)].push_back(i);
  }
  addSigns();
}

/// A new one has the whole text for its prefix.
RewriteList::Family& RewriteList::familyOf(std::string_view sought) {
  std::uint8_t& family = familyOf_[indexOf(sought[0])];
  if (family == noFamily) {
    family = static_cast<std::uint8_t>(families_.size());
    familyOf_[indexOf(capital(sought[0]))] = family;
    families_.push_back({std::string(sought), longestHead, {}});
  }
  return families_[family];
}

void RewriteList::addSigns() {
  std::vector<std::string_view> words;
  for (const Family& family : families_) {
    const auto sign = std::ranges::find_if(family.prefix, isSeldom);
    if (sign != family.prefix.end()) {
      signs_.push_back({*sign, static_cast<std::size_t>(sign - family.prefix.begin())});
      continue;
    }
    for (const auto& members : family.members)
      for (const std::size_t i : members) words.push_back(sought_[i]);
  }
  if (!words.empty()) addWords(words);
}

void RewriteList::addWords(const std::vector<std::string_view>& words) {
  step_ = std::ranges::min(words, {}, &std::string_view::size).size() - pieceSize + 1;
  for (const std::string_view word : words)
    for (std::size_t at = 0; at < step_; ++at) mayBegin_[pieceNumber(word.data() + at)] = true;
}

std::string RewriteList::apply(std::string text) const {
  for (std::size_t i = firstOccurring(text, 0); i < rewrites_.size();
       i = firstOccurring(text, i + 1)) {
    text = replaceAllIgnoreCase(text, rewrites_[i].from, rewrites_[i].to);
  }
  return text;
}

std::size_t RewriteList::firstOccurring(std::string_view text, std::size_t first) const {
  if (first >= rewrites_.size()) return rewrites_.size();
  const std::size_t best = bySigns(text, first);
  return step_ == 0 ? best : byWords(text, first, best);
}

std::size_t RewriteList::bySigns(std::string_view text, std::size_t first) const {
  std::size_t best = rewrites_.size();
  for (const Sign& sign : signs_)
    for (std::size_t at = text.find(sign.character, sign.offset); at < text.size();
         at = text.find(sign.character, at + 1))
      best = firstAt(text, at - sign.offset, first, best);
  return best;
}

std::size_t RewriteList::byWords(std::string_view text, std::size_t first, std::size_t best) const {
  for (std::size_t at = 0; at + pieceSize <= text.size(); at += step_) {
    if (!mayBegin_[pieceNumber(text.data() + at)]) continue;
    for (std::size_t back = 0; back < std::min(step_, at + 1); ++back)
      best = firstAt(text, at - back, first, best);
  }
  return best;
}

std::size_t RewriteList::firstAt(std::string_view text, std::size_t at, std::size_t first,
                                 std::size_t best) const {
  const std::uint8_t number = familyOf_[indexOf(text[at])];
  if (number == noFamily) return best;
  const Family& family = families_[number];
  if (!standsAt(text, at, family.prefix)) return best;
  const std::string_view behind = text.substr(at + family.prefix.size());
  for (const std::size_t i : family.members[headNumber(behind, family.headSize)]) {
    if (i >= best) break;
    if (i >= first && standsAt(text, at, sought_[i])) return i;
  }
  return best;
}

}  // namespace autonotify
