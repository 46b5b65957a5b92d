#include "platform/controls/TextPool.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace autonotify {
namespace {

constexpr std::size_t blockSize = 1 << 16;
constexpr std::size_t mostBlocks = 1 << 16;
constexpr std::size_t fewestSlots = 64;

/// Eight letters at a time; texts of cells are short.
std::uint32_t hashOf(std::string_view text) {
  std::uint64_t hash = text.size();
  std::uint64_t letters = 0;
  const auto mix = [&] {
    hash = (hash ^ letters) * 0x9e3779b97f4a7c15;
    hash ^= hash >> 32;
  };
  for (; text.size() > sizeof letters; text.remove_prefix(sizeof letters)) {
    std::memcpy(&letters, text.data(), sizeof letters);
    mix();
  }
  letters = 0;
  for (const char letter : text) letters = letters << 8 | static_cast<unsigned char>(letter);
  mix();
  return static_cast<std::uint32_t>(hash);
}

}  // namespace

TextPool::Entry TextPool::add(std::string_view text) {
  if (text.empty()) return {};
  if ((places_.size() + 1) * 4 > slots_.size() * 3) growSlots();
  const std::uint32_t hash = hashOf(text);
  Slot& slot = slotFor(text, hash);
  if (slot.id == 0) {
    keep(text);
    slot = {hash, last()};
  }
  return {this->text(slot.id), slot.id};
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
