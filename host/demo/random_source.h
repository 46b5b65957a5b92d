#pragma once

#include <cstdint>
#include <random>
#include <span>

namespace autonotify::host::demo {

/// Chance that a seed repeats on every platform: the engine is fixed by the standard, and the
/// mapping to ranges, which the standard leaves open, is its own.
class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) : engine_(seed) {}

  /// In [0, bound). Requires: bound > 0.
  int below(int bound) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(bound)); }
  /// In [low, high].
  int between(int low, int high) { return low + below(high - low + 1); }
  bool percent(int chance) { return below(100) < chance; }

  template <class Range>
  const auto& pick(const Range& range) {
    return std::data(range)[static_cast<std::size_t>(below(static_cast<int>(std::size(range))))];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace autonotify::host::demo
