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
  /// At least two bytes, and five where it begins with a word; a letter outside ASCII is found in
  /// its own case only.
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
  /// A character by which a family is found: texts hold it seldom, and it has one case.
  struct Sign {
    char character;
    std::size_t offset;  ///< in the prefix
  };
  /// Of a word, which is found by no sign: letters that are seldom met together, with the case bit.
  using Piece = std::array<char, 5>;
  static constexpr std::uint8_t noFamily = 0xFF;

  Family& familyOf(std::string_view sought);
  void addSigns();
  void addWord(std::string_view sought);
  /// The first rewrite from `first` on that occurs in the text, or the number of rewrites.
  std::size_t firstOccurring(std::string_view text, std::size_t first) const;
  /// Of those that stand at `at`; `best` when none of them comes ahead of it.
  std::size_t firstAt(std::string_view text, std::size_t at, std::size_t first,
                      std::size_t best) const;
  bool mayHoldWord(std::string_view text) const;

  std::vector<Rewrite> rewrites_;
  std::vector<std::string> sought_;  ///< `from` of each in small letters
  std::vector<Family> families_;
  std::array<std::uint8_t, 256> familyOf_;  ///< by the first byte in either case
  std::vector<Sign> signs_;
  std::vector<Piece> pieces_;
  std::bitset<256 * 256> starts_;  ///< the first two bytes of all words in any case
};

}  // namespace autonotify
