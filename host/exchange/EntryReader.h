#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "host/exchange/TextFile.h"
#include "platform/DateTime.h"

namespace autonotify::host {

struct FileRecord {
  /// Where it begins, from 1.
  std::size_t line = 0;
  /// UTF-8, with the blanks that stand in quotation marks; empty for one of blanks alone.
  std::vector<std::string> cells;
  /// Why it is no entry; empty for one that may be.
  std::string fault;
};

/// Reads a file record by record; the first holds the headings.
class EntryReader {
 public:
  virtual ~EntryReader() = default;

  /// False after the last record. Throws FileFault.
  virtual bool next(FileRecord& record) = 0;
  virtual const std::string& path() const = 0;
  /// The kind of entries that files of this form hold; empty where it may be any.
  virtual std::string kind() const { return {}; }
  /// What the records read so far have besides, without a heading.
  virtual std::vector<std::string> leftOut() const { return {}; }
};

/// By how the file begins: a calendar, cards of an address book, or else separated values. Days of
/// a calendar that come round every year are taken from the year before `today` to the fifth after
/// it. Throws FileFault.
std::unique_ptr<EntryReader> openEntryReader(const std::string& path, DateTime today);

}  // namespace autonotify::host
