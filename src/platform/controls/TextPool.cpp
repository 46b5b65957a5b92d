#include "platform/controls/TextPool.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <new>
#include <utility>

namespace autonotify {
namespace {

constexpr std::size_t blockSize = 1 << 16;
constexpr std::size_t mostBlocks = 1 << 16;
constexpr std::size_t fewestSlots = 64;

}  // namespace

TextPool::TextId TextPool::add(std::string_view text) {
  if (text.empty()) return 0;
  if ((places_.size() + 1) * 4 > slots_.size() * 3) growSlots();
  const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
  Slot& slot = slotFor(text, hash);
  if (slot.id == 0) {
    keep(text);
    slot = {hash, last()};
  }
  return slot.id;
}

std::string_view TextPool::text(TextId id) const {
  if (id == 0) return {};
  const Place& place = places_[id - 1];
  const Block& block = blocks_[place.block];
  const bool isLastOfBlock = id == last() || places_[id].block != place.block;
  const std::uint32_t end = isLastOfBlock ? block.used : places_[id].offset;
  return {block.characters.get() + place.offset, end - place.offset};
}

/// That of the text, or the free one where it belongs.
TextPool::Slot& TextPool::slotFor(std::string_view sought, std::uint32_t hash) {
  std::size_t at = firstSlot(hash);
  while (slots_[at].id && (slots_[at].hash != hash || text(slots_[at].id) != sought))
    at = (at + 1) & (slots_.size() - 1);
  return slots_[at];
}

void TextPool::keep(std::string_view text) {
  if (last() == lastId || text.size() > std::numeric_limits<std::uint32_t>::max())
    throw std::bad_alloc();
  if (blocks_.empty() || blocks_.back().used + text.size() > blockSize) {
    if (blocks_.size() == mostBlocks) throw std::bad_alloc();
    const std::size_t size = std::max(text.size(), blockSize);
    blocks_.push_back({std::make_unique_for_overwrite<char[]>(size)});
  }
  Block& block = blocks_.back();
  places_.push_back(
      {static_cast<std::uint16_t>(blocks_.size() - 1), static_cast<std::uint16_t>(block.used)});
  std::memcpy(block.characters.get() + block.used, text.data(), text.size());
  block.used += static_cast<std::uint32_t>(text.size());
}

void TextPool::growSlots() {
  const std::vector<Slot> before =
      std::exchange(slots_, std::vector<Slot>(std::max(slots_.size() * 2, fewestSlots)));
  for (const Slot& slot : before) {
    if (slot.id == 0) continue;
    std::size_t at = firstSlot(slot.hash);
    while (slots_[at].id) at = (at + 1) & (slots_.size() - 1);
    slots_[at] = slot;
  }
}

}  // namespace autonotify
