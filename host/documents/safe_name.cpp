#include "host/documents/safe_name.h"

#include <algorithm>

#include "platform/utf8.h"

namespace autonotify::host {
namespace {

constexpr int mostCharacters = 60;
constexpr std::string_view blanksAndDots = " .";

struct Range {
  char32_t first;
  char32_t last;
};
/// What has no looks of its own: controls, ends of lines, and marks that turn the direction.
constexpr Range unseen[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0x200B, 0x200F},
                            {0x2028, 0x202E}, {0x2060, 0x206F}, {0xFEFF, 0xFEFF}};
constexpr std::string_view reserved = "/\\:*?\"<>|";

bool isUnseen(char32_t character) {
  for (const Range& range : unseen) {
    if (character >= range.first && character <= range.last) return true;
  }
  return false;
}

char32_t safeCharacter(const Utf8Step& step) {
  if (!step.isWellFormed() || isUnseen(step.value)) return ' ';
  const bool isReserved =
      step.value < 0x80 && reserved.find(static_cast<char>(step.value)) != std::string_view::npos;
  return isReserved ? U'-' : step.value;
}

}  // namespace

std::string safeName(std::string_view name) {
  std::string safe;
  int characters = 0;
  for (std::size_t at = 0; at < name.size() && characters < mostCharacters;) {
    const Utf8Step step = utf8StepAt(name, at);
    at += step.length;
    const char32_t character = safeCharacter(step);
    const bool isSecondBlank = character == ' ' && (safe.empty() || safe.back() == ' ');
    if (isSecondBlank) continue;
    appendUtf8(safe, character);
    ++characters;
  }
  safe.erase(safe.find_last_not_of(blanksAndDots) + 1);
  return safe.substr(std::min(safe.find_first_not_of(blanksAndDots), safe.size()));
}

}  // namespace autonotify::host
