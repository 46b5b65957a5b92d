#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace autonotify {

/// Texts, each kept once under a number: from 1 in the order in which they came, 0 is the empty
/// text. A text stays where it is until clear(). Nothing that grows moves much at a time.
class TextPool {
 public:
  using TextId = std::uint32_t;
  static constexpr TextId lastId = (1U << 30) - 1;

  struct Entry {
    std::string_view text;
    TextId id = 0;
  };

  /// The entry of the text, which comes in if it is new. Without room for it std::bad_alloc.
  Entry add(std::string_view text);
  std::string_view text(TextId id) const {
    if (id == 0) return {};
    const Place& place = places_[id - 1];
    const Block& block = blocks_[place.block];
    const bool isLastOfBlock = id == last() || places_[id].block != place.block;
    const std::uint32_t end = isLastOfBlock ? block.used : places_[id].offset;
    return {block.characters.get() + place.offset, end - place.offset};
  }
  /// The highest number.
  TextId last() const { return static_cast<TextId>(places_.size()); }
  void clear() { *this = {}; }

 private:
  /// Holds texts one behind the other. A long text has a block of its own.
  struct Block {
    std::unique_ptr<char[]> characters;
    std::uint32_t used = 0;
  };
  struct Place {
    std::uint16_t block;
    std::uint16_t offset;
  };
  struct Slot {
    std::uint32_t hash = 0;
    TextId id = 0;
  };

  TextId keep(std::string_view text);
  void growSlots();
  std::size_t firstSlot(std::uint32_t hash) const { return hash & (slots_.size() - 1); }

  std::vector<Block> blocks_;
  std::vector<Place> places_;
  /// By hash, with room left over; as many as a power of two.
  std::vector<Slot> slots_;
};

}  // namespace autonotify
