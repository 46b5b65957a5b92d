#include "merge/templates/rewrite_list.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace autonotify {
namespace {

/// Set in small letters, and in blanks.
constexpr char caseBit = 0x20;

constexpr char folded(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

constexpr char capital(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

constexpr std::size_t indexOf(char byte) {
  return static_cast<unsigned char>(byte);
}

constexpr std::size_t pairOf(char first, char second) {
  return indexOf(first) * 256 + indexOf(second);
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

/// Where a word is least like others: around its first blank, or else at its begin.
std::size_t seldomPlaceOf(std::string_view word) {
  const std::size_t blank = word.find(' ');
  return blank == std::string_view::npos ? 0 : blank - 1;
}

/// How many places of a text are looked at together.
constexpr std::size_t blockSize = 64;

/// Whether the piece may stand at one of a block's places; its bytes have the case bit set. Looks
/// as many bytes further as the piece has.
template <std::size_t size>
bool mayStandIn(const char* block, const std::array<char, size>& piece) {
  unsigned char any = 0;
  for (std::size_t i = 0; i < blockSize; ++i) {
    unsigned char same = 1;
    for (std::size_t k = 0; k < size; ++k)
      same &= static_cast<unsigned char>((block[i + k] | caseBit) == piece[k]);
    any |= same;
  }
  return any != 0;
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
  for (std::size_t i = 0; i < sought_.size(); ++i) {
    Family& family = familyOf(sought_[i]);
    family.members[indexOf(sought_[i][family.prefix.size()])].push_back(i);
  }
  addSigns();
}

/// A new one has the whole text for its prefix.
RewriteList::Family& RewriteList::familyOf(std::string_view sought) {
  std::uint8_t& family = familyOf_[indexOf(sought[0])];
  if (family == noFamily) {
    family = static_cast<std::uint8_t>(families_.size());
    familyOf_[indexOf(capital(sought[0]))] = family;
    families_.push_back({std::string(sought), {}});
  }
  return families_[family];
}

void RewriteList::addSigns() {
  for (const Family& family : families_) {
    const auto sign = std::ranges::find_if(family.prefix, isSeldom);
    if (sign != family.prefix.end()) {
      signs_.push_back({*sign, static_cast<std::size_t>(sign - family.prefix.begin())});
      continue;
    }
    for (const auto& members : family.members)
      for (const std::size_t i : members) addWord(sought_[i]);
  }
}

void RewriteList::addWord(std::string_view sought) {
  Piece piece{};
  const std::size_t place = std::min(seldomPlaceOf(sought), sought.size() - piece.size());
  for (std::size_t i = 0; i < piece.size(); ++i) piece[i] = sought[place + i] | caseBit;
  pieces_.push_back(piece);
  for (const char first : {sought[0], capital(sought[0])})
    for (const char second : {sought[1], capital(sought[1])}) starts_.set(pairOf(first, second));
}

std::string RewriteList::apply(std::string text) const {
  for (std::size_t i = firstOccurring(text, 0); i < rewrites_.size();
       i = firstOccurring(text, i + 1)) {
    text = replaceAllIgnoreCase(text, rewrites_[i].from, rewrites_[i].to);
  }
  return text;
}

std::size_t RewriteList::firstOccurring(std::string_view text, std::size_t first) const {
  std::size_t best = rewrites_.size();
  if (first >= best) return best;
  for (const Sign& sign : signs_)
    for (std::size_t at = text.find(sign.character, sign.offset); at < text.size();
         at = text.find(sign.character, at + 1))
      best = firstAt(text, at - sign.offset, first, best);
  if (!mayHoldWord(text)) return best;
  for (std::size_t at = 0; at + 1 < text.size(); ++at)
    if (starts_[pairOf(text[at], text[at + 1])]) best = firstAt(text, at, first, best);
  return best;
}

std::size_t RewriteList::firstAt(std::string_view text, std::size_t at, std::size_t first,
                                 std::size_t best) const {
  const std::uint8_t number = familyOf_[indexOf(text[at])];
  if (number == noFamily) return best;
  const Family& family = families_[number];
  const std::size_t behind = at + family.prefix.size();
  if (behind >= text.size() || !standsAt(text, at, family.prefix)) return best;
  for (const std::size_t i : family.members[indexOf(folded(text[behind]))]) {
    if (i >= best) break;
    if (i >= first && standsAt(text, at, sought_[i])) return i;
  }
  return best;
}

bool RewriteList::mayHoldWord(std::string_view text) const {
  constexpr std::size_t further = sizeof(Piece);
  const auto mayStandAt = [&](const char* block) {
    const auto stands = [&](const Piece& piece) { return mayStandIn(block, piece); };
    return std::ranges::any_of(pieces_, stands);
  };
  for (; text.size() >= blockSize + further; text.remove_prefix(blockSize))
    if (mayStandAt(text.data())) return true;
  std::array<char, 2 * blockSize + further> rest{};
  text.copy(rest.data(), rest.size());
  return mayStandAt(rest.data()) || mayStandAt(rest.data() + blockSize);
}

}  // namespace autonotify
