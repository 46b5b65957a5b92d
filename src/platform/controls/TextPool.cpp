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

template <class Number>
std::uint64_t lettersAt(const char* place) {
  Number letters;
  std::memcpy(&letters, place, sizeof letters);
  return letters;
}

/// Of one to eight letters; where these fill no number, some count twice.
std::uint64_t fewLetters(std::string_view text) {
  const char* const last = text.data() + text.size() - 1;
  if (text.size() >= 4)
    return lettersAt<std::uint32_t>(text.data()) << 32 | lettersAt<std::uint32_t>(last - 3);
  return lettersAt<std::uint8_t>(text.data()) << 16 |
         lettersAt<std::uint8_t>(text.data() + text.size() / 2) << 8 |
         lettersAt<std::uint8_t>(last);
}

/// Eight letters at a time; texts of cells are short. Requires: not empty.
std::uint32_t hashOf(std::string_view text) {
  std::uint64_t hash = text.size();
  const auto mix = [&hash](std::uint64_t letters) {
    hash = (hash ^ letters) * 0x9e3779b97f4a7c15;
    hash ^= hash >> 32;
  };
  for (; text.size() > sizeof(std::uint64_t); text.remove_prefix(sizeof(std::uint64_t)))
    mix(lettersAt<std::uint64_t>(text.data()));
  mix(fewLetters(text));
  return static_cast<std::uint32_t>(hash);
}

}  // namespace

TextPool::Entry TextPool::add(std::string_view text) {
  if (text.empty()) return {};
  if ((places_.size() + 1) * 4 > slots_.size() * 3) growSlots();
  const std::uint32_t hash = hashOf(text);
  for (std::size_t at = firstSlot(hash);; at = (at + 1) & (slots_.size() - 1)) {
    Slot& slot = slots_[at];
    if (slot.id == 0) slot = {hash, keep(text)};
    if (slot.hash != hash) continue;
    const std::string_view held = this->text(slot.id);
    if (held == text) return {held, slot.id};
  }
}

TextPool::TextId TextPool::keep(std::string_view text) {
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
  return last();
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
