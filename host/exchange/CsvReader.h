#pragma once

#include <cstddef>
#include <deque>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "host/exchange/EntryReader.h"

struct csv_parser;

namespace autonotify::host {

/// Reads a file of separated values as spreadsheets write them, one record at a time: commas,
/// semicolons or tabs (whichever its first line has most of), quoted cells, UTF-8 with or without a
/// mark. A cell that is no UTF-8 is read as Windows-1252. Lines without a value are passed over.
class CsvReader : public EntryReader {
 public:
  explicit CsvReader(TextFile file);
  ~CsvReader() override;

  /// Throws FileFault for a quotation mark that is never closed, and for one that is closed lines
  /// later in the middle of a cell.
  bool next(FileRecord& record) override;
  const std::string& path() const override { return file_.path(); }

 private:
  struct Fill;

  void chooseDelimiter();
  void feedLine();
  void feed(std::string_view bytes);
  void beginOpenCell();
  void endOpenCell();
  [[noreturn]] void failParse() const;
  void finish();

  TextFile file_;
  std::unique_ptr<csv_parser> parser_;
  /// Bytes of the record that is being read.
  std::size_t recordSize_ = 0;
  /// The line in which a cell begins that goes on in further ones; 0 while none does.
  std::size_t openSince_ = 0;
  FileRecord record_;
  std::deque<FileRecord> records_;
  std::exception_ptr fault_;
  bool isEnded_ = false;
};

/// The cell as a file of comma-separated values holds it: in quotation marks where it needs them.
std::string csvCell(const std::string& text);

}  // namespace autonotify::host
