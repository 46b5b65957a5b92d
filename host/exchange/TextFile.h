#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace autonotify::host {

/// A file that cannot be read as what it should hold: a sentence with its name, and the line where
/// one is at fault.
class FileFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A file of text, read line by line in bounded memory. A mark of UTF-8 at its start is passed
/// over.
class TextFile {
 public:
  /// Throws FileFault, also for UTF-16.
  explicit TextFile(const std::string& path);

  /// The next line with its end, or a part of one that is long. False at the end of the file.
  /// Throws FileFault for a byte 0.
  bool next(std::string_view& piece);
  /// The number, from 1, of the line that came last.
  std::size_t line() const { return line_; }
  /// What is at hand of what next() will give.
  std::string_view ahead() const { return std::string_view(block_).substr(at_); }
  const std::string& path() const { return path_; }
  [[noreturn]] void fail(const std::string& words) const;

 private:
  bool readBlock();

  std::string path_;
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
  std::string block_;
  std::size_t at_ = 0;
  std::size_t line_ = 0;
  bool isLineBegun_ = false;
};

/// Bytes that are no UTF-8 are taken for Windows-1252.
std::string utf8Of(std::string_view bytes);

}  // namespace autonotify::host
