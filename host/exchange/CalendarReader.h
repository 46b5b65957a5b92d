#pragma once

#include <cstddef>
#include <vector>

#include "host/exchange/EntryReader.h"

namespace autonotify::host {

/// Reads the days of an iCalendar file as holidays: an event's first and all that it lasts, in the
/// calendar's own time, and those on which it comes round, but for those that an event of the same
/// series replaces or cancels. Events of one day are one holiday with their names together. An
/// event that was cancelled is none; one that lasts less than a day is told as a record with a
/// fault.
class CalendarReader : public EntryReader {
 public:
  CalendarReader(TextFile file, DateTime today);

  bool next(FileRecord& record) override;
  const std::string& path() const override { return path_; }
  std::string kind() const override { return "holidays"; }

 private:
  std::string path_;
  /// The headings first.
  std::vector<FileRecord> records_;
  std::size_t at_ = 0;
};

}  // namespace autonotify::host
