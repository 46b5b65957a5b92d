#include "host/exchange/TextFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "platform/code_pages.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace autonotify::host {
namespace {

constexpr std::size_t blockSize = std::size_t{1} << 16;
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::array<std::string_view, 2> utf16Marks{"\xFF\xFE", "\xFE\xFF"};

}  // namespace

TextFile::TextFile(const std::string& path)
    : path_(path), file_(std::fopen(path.c_str(), "rbe"), &std::fclose) {
  if (!file_) fail(std::string("cannot be read: ") + std::strerror(errno));
  readBlock();
  for (const std::string_view mark : utf16Marks)
    if (block_.starts_with(mark)) fail("is UTF-16, which is not read; save it as UTF-8");
  if (block_.starts_with(utf8Mark)) at_ = utf8Mark.size();
}

bool TextFile::readBlock() {
  block_.resize(blockSize);
  at_ = 0;
  const std::size_t size = std::fread(block_.data(), 1, blockSize, file_.get());
  if (std::ferror(file_.get())) fail(std::string("cannot be read: ") + std::strerror(errno));
  block_.resize(size);
  return size > 0;
}

bool TextFile::next(std::string_view& piece) {
  if (at_ == block_.size() && !readBlock()) return false;
  const std::size_t end = std::min(block_.find('\n', at_), block_.size() - 1) + 1;
  piece = std::string_view(block_).substr(at_, end - at_);
  line_ += isLineBegun_ ? 0 : 1;
  isLineBegun_ = piece.back() != '\n';
  at_ = end;
  if (piece.find('\0') != piece.npos)
    fail("holds a byte 0 in line " + std::to_string(line_) + ": it is no text");
  return true;
}

void TextFile::fail(const std::string& words) const {
  throw FileFault(path_ + ' ' + words);
}

std::string utf8Of(std::string_view bytes) {
  if (isValidUtf8(bytes)) return std::string(bytes);
  std::string text;
  for (const char byte : bytes)
    appendUtf8(text, characterOf(static_cast<unsigned char>(byte), codePage1252));
  return text;
}

}  // namespace autonotify::host
