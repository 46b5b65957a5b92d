#include "host/exchange/BlockReader.h"

#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr std::size_t longestBlock = std::size_t{1} << 24;
constexpr std::string_view beginMark = "BEGIN:";
constexpr std::string_view endMark = "END:";

bool beginsWithMark(std::string_view line, std::string_view mark) {
  return equalIgnoreCase(line.substr(0, mark.size()), mark);
}

}  // namespace

BlockReader::BlockReader(TextFile file, std::string_view name)
    : file_(std::move(file)), begin_(std::string(beginMark) += name) {}

bool BlockReader::next(TextBlock& block) {
  if (!readBegin()) return false;
  block = {file_.line(), {}};
  for (std::size_t depth = 1; depth > 0;) {
    if (size_ > longestBlock || !nextLine()) failOpen(block);
    const bool isBegin = beginsWithMark(line_, beginMark);
    const bool isEnd = beginsWithMark(line_, endMark);
    if (depth == 1 && !isBegin && !isEnd) block.lines.push_back(line_);
    depth = depth + (isBegin ? 1 : 0) - (isEnd ? 1 : 0);
  }
  return true;
}

bool BlockReader::readBegin() {
  do {
    size_ = 0;
    if (!nextLine()) return false;
  } while (!equalIgnoreCase(trim(line_), begin_));
  return true;
}

/// A line that is far too long is cut; the block that it stands in is too long as well.
bool BlockReader::nextLine() {
  line_.clear();
  std::string_view piece;
  do {
    if (!file_.next(piece)) return !line_.empty();
    size_ += piece.size();
    if (size_ <= longestBlock) line_ += piece;
  } while (piece.back() != '\n');
  while (!line_.empty() && (line_.back() == '\n' || line_.back() == '\r')) line_.pop_back();
  return true;
}

void BlockReader::failOpen(const TextBlock& block) const {
  file_.fail("has no end for what begins with " + begin_ + " in line " +
             std::to_string(block.line));
}

}  // namespace autonotify::host
