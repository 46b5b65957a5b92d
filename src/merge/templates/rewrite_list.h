#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace autonotify {

struct Rewrite {
  /// At least two bytes, and four where it begins with a word; a letter outside ASCII is found in
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
    std::string prefix;        ///< common to all of them, and shorter than each
    std::size_t headSize = 0;  ///< of what each has behind the prefix, the part that tells it
    /// Their positions in the list, by the number of the head.
    std::array<std::vector<std::size_t>, 256> members;
  };
  /// A character by which a family is found: texts hold it seldom, and it has one case.
  struct Sign {
    char character;
    std::size_t offset;  ///< in the prefix
  };
  static constexpr std::uint8_t noFamily = 0xFF;

  Family& familyOf(std::string_view sought);
  void addSigns();
  void addWords(const std::vector<std::string_view>& words);
  /// The first rewrite from `first` on that occurs in the text, or the number of rewrites.
  std::size_t firstOccurring(std::string_view text, std::size_t first) const;
  std::size_t bySigns(std::string_view text, std::size_t first) const;
  std::size_t byWords(std::string_view text, std::size_t first, std::size_t best) const;
  /// Of those that stand at `at`; `best` when none of them comes ahead of it.
  std::size_t firstAt(std::string_view text, std::size_t at, std::size_t first,
                      std::size_t best) const;

  std::vector<Rewrite> rewrites_;
  std::vector<std::string> sought_;  ///< `from` of each in small letters
  std::vector<Family> families_;
  std::array<std::uint8_t, 256> familyOf_;  ///< by the first byte in either case
  std::vector<Sign> signs_;
  // Words, which no sign finds, are told by pieces of four bytes. Each word has as many of them at
  // its begin as a step is long, so that one of them stands where a step ends.
  std::size_t step_ = 0;               ///< 0 where there are no words
  std::array<bool, 1024> mayBegin_{};  ///< by the number of the piece
};

}  // namespace autonotify
