#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace autonotify {

struct Rewrite {
  /// At least two bytes; a letter outside ASCII is found in its own case only.
  std::string from;
  std::string to;
};

/// Replacements of all occurrences, in any case, one after the other: each sees the result of those
/// before it.
///
/// A replacement whose `from` does not occur changes nothing. Which one is the next that occurs is
/// found in one pass over the text, so that a text costs a pass for each replacement that happens,
/// not for each that could.
class RewriteList {
 public:
  explicit RewriteList(std::vector<Rewrite> rewrites);

  std::string apply(std::string text) const;

 private:
  /// The rewrites that begin with the same character.
  struct Family {
    std::string prefix;  ///< common to all of them, and shorter than each
    /// Their positions in the list, by the small letter behind the prefix.
    std::array<std::vector<std::size_t>, 256> members;
  };
  static constexpr std::uint8_t noFamily = 0xFF;

  Family& familyOf(std::string_view sought);
  void addStarts(std::string_view sought);
  /// The first rewrite from `first` on that occurs in the text, or the number of rewrites.
  std::size_t firstOccurring(std::string_view text, std::size_t first) const;
  std::size_t nextStart(std::string_view text, std::size_t from) const;

  std::vector<Rewrite> rewrites_;
  std::vector<std::string> sought_;  ///< `from` of each in small letters
  std::vector<Family> families_;
  std::array<std::uint8_t, 256> familyOf_;  ///< by the first byte in either case
  std::bitset<256 * 256> starts_;           ///< the first two bytes of all rewrites in any case
};

}  // namespace autonotify
