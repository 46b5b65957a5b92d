#include "merge/templates/template_layout.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "platform/text.h"

namespace autonotify {
namespace {

bool holdsMark(std::string_view text, const MergeMarks& marks) {
  return findIgnoreCase(text, marks.open) != std::string_view::npos ||
         findIgnoreCase(text, marks.close) != std::string_view::npos;
}

/// The name in "(name, format)", or nothing for another format.
std::optional<std::string_view> nameWithFormat(std::string_view foldedContent,
                                               std::string_view format) {
  std::string_view rest = foldedContent;
  for (const std::string_view tail : {std::string_view(")"), format, std::string_view(", ")}) {
    if (!rest.ends_with(tail)) return std::nullopt;
    rest.remove_suffix(tail.size());
  }
  if (!rest.starts_with('(')) return std::nullopt;
  return rest.substr(1);
}

std::size_t shapeOf(std::string_view name) {
  const unsigned first = name.empty() ? 0 : static_cast<unsigned char>(name.front());
  return (name.size() * 37 + first) % 256;
}

struct ByName {
  bool operator()(const TemplateLayout::Reading& a, const TemplateLayout::Reading& b) const {
    return std::tie(a.foldedName, a.format) < std::tie(b.foldedName, b.format);
  }
  bool operator()(const TemplateLayout::Reading& a, std::string_view name) const {
    return a.foldedName < name;
  }
  bool operator()(std::string_view name, const TemplateLayout::Reading& a) const {
    return name < a.foldedName;
  }
};

}  // namespace

std::string foldCase(std::string_view text) {
  std::string folded(text);
  for (char& byte : folded) {
    if (static_cast<unsigned char>(byte) >= 0x80) return lowerCase(upperCase(text));
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  }
  return folded;
}

TemplateLayout::TemplateLayout(std::string text) : text_(std::move(text)) {
  const bool isBare = holdsMark(text_, bareMarks);
  const bool isEscaped = holdsMark(text_, escapedMarks);
  if (isBare && isEscaped) return;
  if (isEscaped) marks_ = &escapedMarks;
  isRegular_ = cutAtMarks(*marks_);
  std::sort(readings_.begin(), readings_.end(), ByName());
}

bool TemplateLayout::cutAtMarks(const MergeMarks& marks) {
  const std::string_view text = text_;
  MarkScanner scanner(text, marks);
  std::size_t from = 0;
  while (const std::optional<FoundMark> open = scanner.next()) {
    const std::optional<FoundMark> close = open->isOpen ? scanner.next() : std::nullopt;
    if (!close || close->isOpen) return false;
    if (endsInsideMark(text.substr(from, open->begin - from))) return false;
    from = close->end;
    addSlot(open->begin, from);
  }
  return true;
}

void TemplateLayout::addSlot(std::size_t begin, std::size_t end) {
  const std::size_t head = marks_->open.size();
  const std::string_view content =
      std::string_view(text_).substr(begin + head, end - begin - head - marks_->close.size());
  const auto [known, isNew] = tokens_.try_emplace(foldCase(content), firstSlots_.size());
  if (isNew) {
    firstSlots_.push_back(slots_.size());
    addReadings(known->first, known->second);
  }
  slots_.push_back({begin, end, known->second});
}

void TemplateLayout::addReadings(std::string_view foldedContent, std::size_t token) {
  addReading(foldedContent, Reading::plain, token);
  if (!foldedContent.starts_with('(')) return;
  for (std::size_t format = 0; format < mergeDateFormats.size(); ++format) {
    const auto name = nameWithFormat(foldedContent, mergeDateFormats[format]);
    if (name) addReading(*name, format, token);
  }
}

void TemplateLayout::addReading(std::string_view foldedName, std::size_t format,
                                std::size_t token) {
  readings_.push_back({foldedName, format, token});
  nameShapes_.set(shapeOf(foldedName));
}

std::string TemplateLayout::tokenText(std::size_t token) const {
  const Slot& slot = slots_[firstSlots_[token]];
  return text_.substr(slot.begin, slot.end - slot.begin);
}

std::span<const TemplateLayout::Reading> TemplateLayout::readingsOf(
    std::string_view foldedName) const {
  if (!nameShapes_.test(shapeOf(foldedName))) return {};
  const auto [first, last] =
      std::equal_range(readings_.begin(), readings_.end(), foldedName, ByName());
  return {first, last};
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
