#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace autonotify::host {

/// Which columns the names asked for last mean, each spelled as it was asked for.
class AskedNames {
 public:
  /// The column; -1 where the name is not known, or no longer.
  int find(std::string_view name) const {
    const Ends ends = endsOf(name);
    const Pair& pair = pairs_[placeOf(ends)];
    if (isOf(pair.last, name, ends)) return pair.last.column;
    return isOf(pair.former, name, ends) ? pair.former.column : -1;
  }

  void remember(std::string_view name, int column) {
    const Ends ends = endsOf(name);
    Pair& pair = pairs_[placeOf(ends)];
    pair.former = std::exchange(pair.last, {ends, column, std::string(name)});
  }

 private:
  /// The first and the last letters of a name; with their number they are all of a short one.
  struct Ends {
    std::uint64_t first = 0;
    std::uint64_t last = 0;

    bool operator==(const Ends&) const = default;
  };
  struct Asked {
    Ends ends;
    int column = -1;
    std::string name;
  };
  struct Pair {
    Asked last;
    Asked former;
  };

  static constexpr std::size_t letters = sizeof(std::uint64_t);

  static Ends endsOf(std::string_view name) {
    Ends ends;
    if (name.size() < letters) {
      name.copy(reinterpret_cast<char*>(&ends.first), letters);
    } else {
      std::memcpy(&ends.first, name.data(), letters);
      std::memcpy(&ends.last, name.data() + name.size() - letters, letters);
    }
    return ends;
  }
  static std::size_t placeOf(const Ends& ends) {
    constexpr std::uint64_t spread = 0x9e3779b97f4a7c15;
    return (ends.first * spread + ends.last) * spread >> 58;
  }
  static bool isOf(const Asked& asked, std::string_view name, const Ends& ends) {
    return asked.ends == ends && asked.name.size() == name.size() &&
           (name.size() <= 2 * letters || asked.name == name);
  }

  std::array<Pair, 64> pairs_;
};

}  // namespace autonotify::host
