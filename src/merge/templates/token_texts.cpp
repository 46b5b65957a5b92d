#include "merge/templates/token_texts.h"

namespace autonotify {

TokenTexts::TokenTexts(const TemplateLayout& layout)
    : layout_(layout), texts_(layout.tokenCount()) {}

bool TokenTexts::needsBlank(std::size_t token) const {
  const std::vector<TemplateLayout::Slot>& slots = layout_.slots();
  std::size_t slot = layout_.firstSlotOf(token);
  for (;; --slot) {
    const std::size_t textBegin = slot == 0 ? 0 : slots[slot - 1].end;
    if (slots[slot].begin > textBegin) return layout_.text()[slots[slot].begin - 1] != ' ';
    if (slot == 0) return false;
    const std::optional<std::string>& former = texts_[slots[slot - 1].token];
    if (!former) return true;
    if (!former->empty()) return former->back() != ' ';
  }
}

std::string TokenTexts::joined(bool keepsUnfilled) const {
  const std::string_view text = layout_.text();
  std::string result;
  result.reserve(text.size() + text.size() / 4);
  std::size_t copied = 0;
  for (const TemplateLayout::Slot& slot : layout_.slots()) {
    result.append(text, copied, slot.begin - copied);
    copied = slot.end;
    if (texts_[slot.token]) {
      result.append(*texts_[slot.token]);
    } else if (keepsUnfilled) {
      result.append(text, slot.begin, slot.end - slot.begin);
    }
  }
  return result.append(text, copied);
}

}  // namespace autonotify
