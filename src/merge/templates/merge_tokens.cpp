#include "merge/templates/merge_tokens.h"

#include <algorithm>

#include "platform/richtext/rich_text_edit.h"
#include "platform/text.h"

namespace autonotify {
namespace {

// The rich-text box keeps whole what is a token here.
static_assert(longestTokenName == longestFieldName);
constexpr auto longestFormat =
    std::ranges::max_element(mergeDateFormats, {}, &std::string_view::size);
static_assert(longestTokenDate ==
              longestFieldName + std::string_view("(, )").size() + longestFormat->size());

constexpr char leadByte = bareMarks.open[0];
constexpr std::size_t escapedLength = escapedMarks.open.size();

bool isBareTail(char byte) {
  return byte == bareMarks.open[1] || byte == bareMarks.close[1];
}

bool startsWithEscapedMark(std::string_view text) {
  const std::string_view head = text.substr(0, escapedLength);
  return equalIgnoreCase(head, escapedMarks.open) || equalIgnoreCase(head, escapedMarks.close);
}

constexpr char smallLetter(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// In any case; the marks are in small letters.
bool isMark(std::string_view text, std::string_view mark) {
  return std::ranges::equal(text, mark, {}, smallLetter);
}

}  // namespace

std::string dateContent(std::string_view name, std::string_view format) {
  return std::string("(").append(name).append(", ").append(format).append(")");
}

std::string plainToken(const MergeMarks& marks, std::string_view content) {
  return std::string(marks.open).append(content).append(marks.close);
}

std::string dateToken(const MergeMarks& marks, std::string_view name, std::string_view format) {
  return plainToken(marks, dateContent(name, format));
}

bool endsInsideMark(std::string_view text) {
  if (text.empty()) return false;
  if (text.back() == leadByte) return true;
  text.remove_prefix(text.size() - std::min(text.size(), escapedLength - 1));
  const std::size_t backslash = text.rfind('\\');
  if (backslash == std::string_view::npos) return false;
  const std::string_view tail = text.substr(backslash);
  return equalIgnoreCase(tail, escapedMarks.open.substr(0, tail.size())) ||
         equalIgnoreCase(tail, escapedMarks.close.substr(0, tail.size()));
}

bool mayFormMark(std::string_view value) {
  if (value.empty()) return false;
  const bool mayBegin = value.find(leadByte) != value.npos || value.find('\\') != value.npos;
  if (!mayBegin) return isBareTail(value.front());
  if (isBareTail(value.front()) || endsInsideMark(value)) return true;
  for (std::size_t i = value.find(leadByte); i < value.size(); i = value.find(leadByte, i + 1))
    if (isBareTail(value[i + 1])) return true;
  for (std::size_t i = value.find('\\'); i < value.size(); i = value.find('\\', i + 1))
    if (startsWithEscapedMark(value.substr(i))) return true;
  return false;
}

// Rich text holds the quote of a mark less often than the backslash ahead of it.
MarkScanner::MarkScanner(std::string_view text, const MergeMarks& marks)
    : text_(text), marks_(marks), seldomAt_(marks.open.starts_with('\\') ? 1 : 0) {}

std::optional<FoundMark> MarkScanner::next() {
  const std::size_t size = marks_.open.size();
  const char seldom = marks_.open[seldomAt_];
  for (std::size_t at = text_.find(seldom, at_ + seldomAt_); at < text_.size();
       at = text_.find(seldom, at + 1)) {
    const std::size_t begin = at - seldomAt_;
    const std::string_view head = text_.substr(begin, size);
    const bool isOpen = isMark(head, marks_.open);
    if (!isOpen && !isMark(head, marks_.close)) continue;
    at_ = begin + size;
    return FoundMark{begin, at_, isOpen};
  }
  at_ = text_.size();
  return std::nullopt;
}

std::optional<FoundMark> MarkScanner::nextOf(bool isOpen) {
  std::optional<FoundMark> mark = next();
  while (mark && mark->isOpen != isOpen) mark = next();
  return mark;
}

}  // namespace autonotify
