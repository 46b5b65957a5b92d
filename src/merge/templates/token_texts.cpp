#include "merge/templates/token_texts.h"

namespace autonotify {
namespace {

/// Values are seldom longer; what is, makes the texts grow.
constexpr std::size_t usualLength = 32;

}  // namespace

TokenTexts::TokenTexts(const TemplateLayout& layout)
    : layout_(layout), filled_(layout.tokenCount()) {
  texts_.reserve(layout.tokenCount() * usualLength);
}

bool TokenTexts::needsBlank(std::size_t token) const {
  const std::vector<TemplateLayout::Slot>& slots = layout_.slots();
  std::size_t slot = layout_.firstSlotOf(token);
  for (;; --slot) {
    const std::size_t textBegin = slot == 0 ? 0 : slots[slot - 1].end;
    if (slots[slot].begin > textBegin) return layout_.text()[slots[slot].begin - 1] != ' ';
    if (slot == 0) return false;
    const Filled& former = filled_[slots[slot - 1].token];
    if (!former.isFilled) return true;
    if (former.size > 0) return textOf(former).back() != ' ';
  }
}

void TokenTexts::fill(std::size_t token, std::string_view text, bool withBlank) {
  const std::size_t begin = texts_.size();
  if (withBlank) texts_ += ' ';
  texts_ += text;
  filled_[token] = {true, begin, texts_.size() - begin};
}

std::string TokenTexts::joined(bool keepsUnfilled) const {
  const std::string_view text = layout_.text();
  std::size_t size = text.size();
  for (const TemplateLayout::Slot& slot : layout_.slots())
    size += textOf(slot, keepsUnfilled).size() - (slot.end - slot.begin);
  std::string result(size, '\0');
  char* to = result.data();
  const auto put = [&](std::string_view part) { to += part.copy(to, part.size()); };
  std::size_t copied = 0;
  for (const TemplateLayout::Slot& slot : layout_.slots()) {
    put(text.substr(copied, slot.begin - copied));
    put(textOf(slot, keepsUnfilled));
    copied = slot.end;
  }
  put(text.substr(copied));
  return result;
}

}  // namespace autonotify
