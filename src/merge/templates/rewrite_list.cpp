#include "merge/templates/rewrite_list.h"

#include <algorithm>
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

}  // namespace

RewriteList::RewriteList(std::vector<Rewrite> rewrites) : rewrites_(std::move(rewrites)) {
  familyOf_.fill(noFamily);
  for (const Rewrite& rewrite : rewrites_) {
    std::string& sought = sought_.emplace_back(rewrite.from);
    std::ranges::transform(sought, sought.begin(), folded);
    std::string& prefix = familyOf(sought).prefix;
    prefix = commonPrefix(prefix, sought.substr(0, sought.size() - 1));
    addStarts(sought);
  }
  for (std::size_t i = 0; i < sought_.size(); ++i) {
    Family& family = familyOf(sought_[i]);
    family.members[indexOf(sought_[i][family.prefix.size()])].push_back(i);
  }
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

void RewriteList::addStarts(std::string_view sought) {
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
  for (std::size_t at = nextStart(text, 0); at < text.size(); at = nextStart(text, at + 1)) {
    const Family& family = families_[familyOf_[indexOf(text[at])]];
    const std::size_t behind = at + family.prefix.size();
    if (behind >= text.size() || !standsAt(text, at, family.prefix)) continue;
    for (const std::size_t i : family.members[indexOf(folded(text[behind]))]) {
      if (i >= best) break;
      if (i >= first && standsAt(text, at, sought_[i])) best = i;
    }
  }
  return best;
}

std::size_t RewriteList::nextStart(std::string_view text, std::size_t from) const {
  // One family of one spelling, such as the bare tokens, is what the library's search is best at.
  if (families_.size() == 1 && capital(families_[0].prefix[0]) == families_[0].prefix[0])
    return std::min(text.find(families_[0].prefix[0], from), text.size());
  for (; from + 1 < text.size(); ++from)
    if (starts_[pairOf(text[from], text[from + 1])]) return from;
  return text.size();
}

}  // namespace autonotify
