#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace autonotify {

/// Fast and good enough for tables; equal texts have the same.
std::uint64_t hashOf(std::string_view text);

struct HashedText {
  explicit HashedText(std::string_view given) : text(given), hash(hashOf(given)) {}

  std::string_view text;
  std::uint64_t hash;
};

/// Numbers different texts from 0 in the order in which they are added. The texts outlive it.
class TextNumbers {
 public:
  /// `most`: how many texts are added at most.
  explicit TextNumbers(std::size_t most);

  std::size_t size() const { return texts_.size(); }
  const HashedText& operator[](std::size_t number) const { return texts_[number]; }
  /// The number of the text, which is added when it is a new one.
  std::size_t add(std::string_view text);
  std::optional<std::size_t> find(const HashedText& text) const;

 private:
  /// Where the text stands or would stand.
  std::size_t placeOf(const HashedText& sought) const;

  std::vector<HashedText> texts_;
  std::vector<std::uint32_t> places_;  ///< numbers, 1 higher; 0 where none is
};

}  // namespace autonotify
