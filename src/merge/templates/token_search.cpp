#include "merge/templates/token_search.h"

#include "merge/templates/template_layout.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr int mostTimes = 16;

std::uint64_t foldedHashOf(std::string_view content) {
  return hashOf(foldCase(content));
}

}  // namespace

TokenSearch::TokenSearch(std::string& text, const MergeMarks& marks)
    : text_(text), marks_(marks), timesLeft_(mostTimes) {
  writeDown();
}

bool TokenSearch::holds(std::string_view content) const {
  const bool isWrittenDown = timesLeft_ > 0 && !mayFormMark(content);
  if (isWrittenDown && !contents_.contains(foldedHashOf(content))) return false;
  return findIgnoreCase(text_, tokenOf(content)) != std::string::npos;
}

void TokenSearch::noteReplaced(std::string_view value) {
  if (timesLeft_ == 0 || (isLasting_ && !mayFormMark(value))) return;
  if (--timesLeft_ > 0) writeDown();
}

void TokenSearch::writeDown() {
  contents_.clear();
  isLasting_ = true;
  const std::string_view text = text_;
  MarkScanner scanner(text, marks_);
  FoundMark former;
  std::size_t gapBegin = 0;
  std::size_t unclosed = 0;
  while (const std::optional<FoundMark> mark = scanner.next()) {
    if (!mark->isOpen && former.isOpen) {
      contents_.insert(foldedHashOf(text.substr(former.end, mark->begin - former.end)));
      if (endsInsideMark(text.substr(gapBegin, former.begin - gapBegin))) isLasting_ = false;
    } else if (!mark->isOpen && unclosed > 0) {
      isLasting_ = false;
    }
    if (mark->isOpen) {
      ++unclosed;
    } else if (unclosed > 0) {
      --unclosed;
    }
    gapBegin = former.end;
    former = *mark;
  }
}

}  // namespace autonotify
