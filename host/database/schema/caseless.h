#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>

namespace autonotify::host {

// Names of tables and columns are ASCII and match in any case.

constexpr char lowerAscii(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
}

struct CaselessHash {
  using is_transparent = void;
  /// Eight letters at a time; the bit that tells capitals is set in all.
  std::size_t operator()(std::string_view text) const {
    std::uint64_t hash = text.size();
    while (!text.empty()) {
      std::uint64_t letters = 0;
      const std::size_t taken = text.size() < sizeof letters ? text.size() : sizeof letters;
      std::memcpy(&letters, text.data(), taken);
      hash = (hash ^ (letters | 0x2020202020202020)) * 0x9e3779b97f4a7c15;
      hash ^= hash >> 32;
      text.remove_prefix(taken);
    }
    return static_cast<std::size_t>(hash);
  }
};

struct CaselessEqual {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const {
    if (left == right) return true;
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i)
      if (lowerAscii(left[i]) != lowerAscii(right[i])) return false;
    return true;
  }
};

template <class T>
using CaselessMap = std::unordered_map<std::string, T, CaselessHash, CaselessEqual>;

}  // namespace autonotify::host
