#pragma once

#include <cstddef>
#include <cstdint>
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
  std::size_t operator()(std::string_view text) const {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char letter : text)
      hash = (hash ^ static_cast<unsigned char>(lowerAscii(letter))) * 0x100000001b3;
    return static_cast<std::size_t>(hash);
  }
};

struct CaselessEqual {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i)
      if (lowerAscii(left[i]) != lowerAscii(right[i])) return false;
    return true;
  }
};

template <class T>
using CaselessMap = std::unordered_map<std::string, T, CaselessHash, CaselessEqual>;

}  // namespace autonotify::host
