#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/exchange/TextFile.h"

namespace autonotify::host {

/// What stands between BEGIN:NAME and END:NAME, without the blocks within it.
struct TextBlock {
  /// Of its beginning, from 1.
  std::size_t line = 0;
  /// As they are in the file, folded ones in pieces; without their ends.
  std::vector<std::string> lines;
};

/// Reads the blocks of one name from a calendar or an address book, one at a time.
class BlockReader {
 public:
  BlockReader(TextFile file, std::string_view name);

  /// False after the last one. Throws FileFault for one that does not end.
  bool next(TextBlock& block);
  const TextFile& file() const { return file_; }

 private:
  bool nextLine();
  bool readBegin();
  [[noreturn]] void failOpen(const TextBlock& block) const;

  TextFile file_;
  std::string begin_;
  std::string line_;
  /// Bytes of the block that is being read.
  std::size_t size_ = 0;
};

}  // namespace autonotify::host
