#include "merge/templates/template_layout.h"

#include <algorithm>
#include <optional>
#include <span>

#include "platform/text.h"

namespace autonotify {
namespace {

bool holdsMark(std::string_view text, const MergeMarks& marks) {
  return MarkScanner(text, marks).next().has_value();
}

/// What a template seldom exceeds.
constexpr std::size_t usualSlots = 16;

/// False where the text goes beyond ASCII.
bool foldAscii(std::span<char> text) {
  unsigned char bits = 0;
  for (char& byte : text) {
    bits |= static_cast<unsigned char>(byte);
    byte = static_cast<char>(byte + (byte >= 'A' && byte <= 'Z' ? 'a' - 'A' : 0));
  }
  return bits < 0x80;
}

void appendFolded(std::string& folded, std::string_view text) {
  const std::size_t begin = folded.size();
  folded += text;
  if (foldAscii(std::span(folded).subspan(begin))) return;
  folded.replace(begin, text.size(), lowerCase(upperCase(text)));
}

}  // namespace

std::string foldCase(std::string_view text) {
  std::string folded;
  appendFolded(folded, text);
  return folded;
}

TemplateLayout::TemplateLayout(std::string text) : text_(std::move(text)) {
  const bool isBare = holdsMark(text_, bareMarks);
  if (isBare && holdsMark(text_, escapedMarks)) return;
  if (!isBare) marks_ = &escapedMarks;
  isRegular_ = cutAtMarks();
  if (isRegular_) numberTokens();
}

bool TemplateLayout::cutAtMarks() {
  const std::string_view text = text_;
  slots_.reserve(usualSlots);
  MarkScanner scanner(text, *marks_);
  std::size_t from = 0;
  while (const std::optional<FoundMark> open = scanner.next()) {
    const std::optional<FoundMark> close = open->isOpen ? scanner.next() : std::nullopt;
    if (!close || close->isOpen) return false;
    if (endsInsideMark(text.substr(from, open->begin - from))) return false;
    from = close->end;
    slots_.push_back({open->begin, from, 0});
  }
  return true;
}

void TemplateLayout::numberTokens() {
  const auto lengthOf = [](const Slot& slot) { return slot.end - slot.begin; };
  std::size_t length = 0;
  for (const Slot& slot : slots_) length += lengthOf(slot);
  foldedContents_.reserve(length);  // the numbers point into it
  contents_ = TextNumbers(slots_.size());
  firstSlots_.reserve(slots_.size());
  const std::string_view text = text_;
  const std::size_t open = marks_->open.size();
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const std::size_t begin = foldedContents_.size();
    const std::size_t size = lengthOf(slots_[i]) - open - marks_->close.size();
    appendFolded(foldedContents_, text.substr(slots_[i].begin + open, size));
    slots_[i].token = contents_.add(std::string_view(foldedContents_).substr(begin));
    if (slots_[i].token == firstSlots_.size()) firstSlots_.push_back(i);
  }
}

std::string TemplateLayout::tokenText(std::size_t token) const {
  const Slot& slot = slots_[firstSlots_[token]];
  return text_.substr(slot.begin, slot.end - slot.begin);
}

TemplateLayoutCache& TemplateLayoutCache::instance() {
  static TemplateLayoutCache cache;
  return cache;
}

std::shared_ptr<const TemplateLayout> TemplateLayoutCache::find(std::string_view templateText,
                                                                const Setting& setting) {
  for (Entry& entry : entries_) {
    if (entry.setting != setting || entry.templateText != templateText) continue;
    entry.lastUse = ++uses_;
    return entry.layout;
  }
  return nullptr;
}

void TemplateLayoutCache::keep(std::string_view templateText, const Setting& setting,
                               std::shared_ptr<const TemplateLayout> layout) {
  if (templateText.size() > maxTemplateSize) return;
  if (entries_.size() < maxEntries) entries_.emplace_back();
  Entry& entry = *std::ranges::min_element(entries_, {}, &Entry::lastUse);
  entry.templateText = templateText;
  entry.setting = setting;
  entry.layout = std::move(layout);
  entry.lastUse = ++uses_;
}

}  // namespace autonotify
