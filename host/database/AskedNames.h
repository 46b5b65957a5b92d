#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace autonotify::host {

/// Which columns the names asked for last mean, each spelled as it was asked for. Names of more
/// than 24 letters are not remembered.
class AskedNames {
 public:
  /// The column; -1 where the name is not known, or no longer.
  int find(std::string_view name) const {
    const Words words = wordsOf(name);
    const Pair& pair = pairs_[placeOf(words)];
    if (pair.last.isOf(name, words)) return pair.last.column;
    return pair.former.isOf(name, words) ? pair.former.column : -1;
  }

  void remember(std::string_view name, int column) {
    if (name.size() > 3 * letters) return;
    const Words words = wordsOf(name);
    Pair& pair = pairs_[placeOf(words)];
    pair.former =
        std::exchange(pair.last, {words, static_cast<std::uint32_t>(name.size()), column});
  }

 private:
  /// Letters from the beginning, the middle and the end of a name; with their number they are all
  /// of it.
  struct Words {
    std::uint64_t first = 0;
    std::uint64_t middle = 0;
    std::uint64_t last = 0;

    bool operator==(const Words&) const = default;
  };
  struct Asked {
    Words words;
    std::uint32_t size = 0;
    std::int32_t column = -1;

    bool isOf(std::string_view name, const Words& its) const {
      return words == its && size == name.size();
    }
  };
  /// Fills a line of the processor's memory.
  struct alignas(64) Pair {
    Asked last;
    Asked former;
  };

  static constexpr std::size_t letters = sizeof(std::uint64_t);

  static Words wordsOf(std::string_view name) {
    Words words;
    if (name.size() < letters) {
      name.copy(reinterpret_cast<char*>(&words.first), letters);
    } else {
      const std::size_t last = name.size() - letters;
      std::memcpy(&words.first, name.data(), letters);
      std::memcpy(&words.middle, name.data() + last / 2, letters);
      std::memcpy(&words.last, name.data() + last, letters);
    }
    return words;
  }
  static std::size_t placeOf(const Words& words) {
    constexpr std::uint64_t spread = 0x9e3779b97f4a7c15;
    return (words.first * spread + words.last) * spread >> 58;
  }
  std::array<Pair, 64> pairs_;
};

}  // namespace autonotify::host
