#include "merge/templates/text_numbers.h"

#include <array>
#include <bit>
#include <cstring>

namespace autonotify {
namespace {

constexpr std::size_t wordSize = sizeof(std::uint64_t);

/// Eight bytes, taken off the text.
std::uint64_t takeWord(std::string_view& text) {
  std::uint64_t word = 0;
  std::memcpy(&word, text.data(), wordSize);
  text.remove_prefix(wordSize);
  return word;
}

/// Fewer than eight bytes.
std::uint64_t wordOf(std::string_view rest) {
  std::uint64_t word = 0;
  for (const char byte : rest) word = word << 8 | static_cast<unsigned char>(byte);
  return word;
}

std::uint64_t mixed(std::uint64_t hash, std::uint64_t word) {
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
  hash = (hash ^ word) * factor;
  return hash ^ (hash >> 32);
}

/// Takes the bulk of a long text in strands that do not wait for each other.
std::uint64_t hashOfBulk(std::uint64_t hash, std::string_view& text) {
  std::array<std::uint64_t, 4> strands{1, 2, 3, 4};
  while (text.size() >= strands.size() * wordSize)
    for (std::uint64_t& strand : strands) strand = mixed(strand, takeWord(text));
  for (const std::uint64_t strand : strands) hash = mixed(hash, strand);
  return hash;
}

}  // namespace

std::uint64_t hashOf(std::string_view text) {
  constexpr std::size_t longText = 128;
  std::uint64_t hash = text.size();
  if (text.size() >= longText) hash = hashOfBulk(hash, text);
  while (text.size() >= wordSize) hash = mixed(hash, takeWord(text));
  return mixed(hash, wordOf(text));
}

TextNumbers::TextNumbers(std::size_t most) : places_(std::bit_ceil(2 * most + 1)) {
  texts_.reserve(most);
}

std::size_t TextNumbers::placeOf(const HashedText& sought) const {
  const std::size_t last = places_.size() - 1;
  for (std::size_t place = sought.hash & last;; place = (place + 1) & last) {
    if (places_[place] == 0) return place;
    const HashedText& known = texts_[places_[place] - 1];
    if (known.hash == sought.hash && known.text == sought.text) return place;
  }
}

std::size_t TextNumbers::add(std::string_view text) {
  const HashedText added(text);
  std::uint32_t& number = places_[placeOf(added)];
  if (number == 0) {
    texts_.push_back(added);
    number = static_cast<std::uint32_t>(texts_.size());
  }
  return number - 1;
}

std::optional<std::size_t> TextNumbers::find(const HashedText& text) const {
  const std::uint32_t number = places_[placeOf(text)];
  if (number == 0) return std::nullopt;
  return number - 1;
}

}  // namespace autonotify
