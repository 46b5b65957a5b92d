#include "merge/template_layout.h"

#include <algorithm>
#include <optional>

#include "platform/text.h"

namespace autonotify {
namespace {

constexpr std::size_t npos = std::string_view::npos;

bool holdsMark(std::string_view text, const MergeMarks& marks) {
  return findIgnoreCase(text, marks.open) != npos || findIgnoreCase(text, marks.close) != npos;
}

/// The name in "(name, format)", or nothing for another format.
std::optional<std::string_view> nameWithFormat(std::string_view content, std::string_view format) {
  const std::size_t tailSize = format.size() + 3;
  if (content.size() < tailSize + 1 || content.front() != '(' || content.back() != ')')
    return std::nullopt;
  const std::string_view tail = content.substr(content.size() - tailSize);
  if (!tail.starts_with(", ") || !equalIgnoreCase(tail.substr(2, format.size()), format))
    return std::nullopt;
  return content.substr(1, content.size() - tailSize - 1);
}

}  // namespace

std::string foldCase(std::string_view text) {
  return lowerCase(upperCase(text));
}

TemplateLayout::TemplateLayout(std::string text) : text_(std::move(text)) {
  const bool isBare = holdsMark(text_, bareMarks);
  const bool isEscaped = holdsMark(text_, escapedMarks);
  if (isBare && isEscaped) return;
  if (isEscaped) marks_ = &escapedMarks;
  isRegular_ = cutAtMarks(*marks_);
}

bool TemplateLayout::cutAtMarks(const MergeMarks& marks) {
  const std::string_view text = text_;
  std::size_t from = 0;
  for (;;) {
    const std::size_t open = findIgnoreCase(text, marks.open, from);
    const std::size_t close = findIgnoreCase(text, marks.close, from);
    if (open == npos) return close == npos;
    if (close == npos || close < open) return false;
    const std::size_t begin = open + marks.open.size();
    if (findIgnoreCase(text.substr(begin, close - begin), marks.open) != npos) return false;
    if (endsInsideMark(text.substr(from, open - from))) return false;
    from = close + marks.close.size();
    addSlot(open, from);
  }
}

void TemplateLayout::addSlot(std::size_t begin, std::size_t end) {
  const std::size_t head = marks_->open.size();
  const std::string_view content =
      std::string_view(text_).substr(begin + head, end - begin - head - marks_->close.size());
  const auto [known, isNew] = tokens_.try_emplace(foldCase(content), firstSlots_.size());
  if (isNew) {
    firstSlots_.push_back(slots_.size());
    addReadings(content, known->second);
  }
  slots_.push_back({begin, end, known->second});
}

void TemplateLayout::addReadings(std::string_view content, std::size_t token) {
  for (std::size_t format = 0; format < mergeDateFormats.size(); ++format) {
    const auto name = nameWithFormat(content, mergeDateFormats[format]);
    if (name) readings_[foldCase(*name)].push_back({format, token});
  }
  readings_[foldCase(content)].push_back({Reading::plain, token});
}

std::string TemplateLayout::tokenText(std::size_t token) const {
  const Slot& slot = slots_[firstSlots_[token]];
  return text_.substr(slot.begin, slot.end - slot.begin);
}

const std::vector<TemplateLayout::Reading>& TemplateLayout::readingsOf(
    const std::string& foldedName) const {
  static const std::vector<Reading> none;
  const auto found = readings_.find(foldedName);
  return found == readings_.end() ? none : found->second;
}

TemplateLayoutCache& TemplateLayoutCache::instance() {
  static TemplateLayoutCache cache;
  return cache;
}

std::shared_ptr<const TemplateLayout> TemplateLayoutCache::find(std::string_view templateText,
                                                                const Setting& setting) {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.setting == setting && entry.templateText == templateText;
  });
  if (found == entries_.end()) return nullptr;
  std::rotate(entries_.begin(), found, found + 1);
  return entries_.front().layout;
}

void TemplateLayoutCache::keep(std::string_view templateText, const Setting& setting,
                               std::shared_ptr<const TemplateLayout> layout) {
  if (templateText.size() > maxTemplateSize) return;
  if (entries_.size() == maxEntries) entries_.pop_back();
  entries_.insert(entries_.begin(), {std::string(templateText), setting, std::move(layout)});
}

}  // namespace autonotify
