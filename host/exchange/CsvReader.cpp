#include "host/exchange/CsvReader.h"

#include <csv.h>

#include <algorithm>
#include <array>

#include "host/exchange/cell_values.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr std::size_t longestRecord = std::size_t{1} << 24;
constexpr std::array delimiters{',', ';', '\t'};

bool isBlank(std::string_view text) {
  return text.find_first_not_of(blanks) == text.npos;
}

}  // namespace

/// What the parser calls back; nothing may be thrown through it.
struct CsvReader::Fill {
  static void cell(void* bytes, std::size_t size, void* target) {
    CsvReader& reader = *static_cast<CsvReader*>(target);
    reader.endOpenCell();
    const std::string_view cell(static_cast<const char*>(bytes), size);
    try {
      reader.record_.cells.push_back(isBlank(cell) ? std::string() : utf8Of(cell));
    } catch (...) {
      reader.fault_ = std::current_exception();
    }
  }

  static void record(int, void* target) {
    CsvReader& reader = *static_cast<CsvReader*>(target);
    try {
      const bool hasValue = std::ranges::any_of(
          reader.record_.cells, [](const std::string& cell) { return !cell.empty(); });
      if (hasValue) reader.records_.push_back(std::move(reader.record_));
    } catch (...) {
      reader.fault_ = std::current_exception();
    }
    reader.record_ = {};
    reader.recordSize_ = 0;
  }
};

CsvReader::CsvReader(TextFile file)
    : file_(std::move(file)), parser_(std::make_unique<csv_parser>()) {
  if (csv_init(parser_.get(), 0) != 0) throw std::bad_alloc();
  chooseDelimiter();
}

CsvReader::~CsvReader() {
  csv_free(parser_.get());
}

void CsvReader::chooseDelimiter() {
  const std::string_view line = file_.ahead().substr(0, file_.ahead().find('\n'));
  const auto countOf = [&](char delimiter) { return std::ranges::count(line, delimiter); };
  csv_set_delim(parser_.get(),
                static_cast<unsigned char>(*std::ranges::max_element(delimiters, {}, countOf)));
}

bool CsvReader::next(FileRecord& record) {
  while (records_.empty() && !isEnded_) feedLine();
  if (records_.empty()) return false;
  record = std::move(records_.front());
  records_.pop_front();
  return true;
}

/// A line of the file at a time, so that each record knows its own.
void CsvReader::feedLine() {
  std::string_view piece;
  file_.next(piece) ? feed(piece) : finish();
}

void CsvReader::feed(std::string_view bytes) {
  if (recordSize_ == 0) {
    if (isBlank(bytes)) return;
    record_.line = file_.line();
  }
  recordSize_ += bytes.size();
  if (recordSize_ > longestRecord)
    file_.fail("has a record without an end in line " + std::to_string(record_.line) +
               ": is a quotation mark opened there and never closed?");
  if (csv_parse(parser_.get(), bytes.data(), bytes.size(), &Fill::cell, &Fill::record, this) !=
      bytes.size())
    failParse();
  if (fault_) std::rethrow_exception(fault_);
  if (recordSize_ > 0 && bytes.back() == '\n') beginOpenCell();
}

/// What a stray quotation mark opens goes on to the next one, which opens a cell: further lines are
/// read strictly until the cell ends.
void CsvReader::beginOpenCell() {
  if (openSince_ == 0) openSince_ = file_.line();
  csv_set_opts(parser_.get(), CSV_STRICT);
}

void CsvReader::endOpenCell() {
  openSince_ = 0;
  csv_set_opts(parser_.get(), 0);
}

void CsvReader::failParse() const {
  if (csv_error(parser_.get()) != CSV_EPARSE) throw std::bad_alloc();
  file_.fail("has a quotation mark in line " + std::to_string(file_.line()) +
             " that closes the one of line " + std::to_string(openSince_) +
             " in the middle of a cell: one of them does not belong there");
}

void CsvReader::finish() {
  isEnded_ = true;
  // Quotation marks within a cell are taken as they are; one that is open at the end is not.
  csv_set_opts(parser_.get(), CSV_STRICT | CSV_STRICT_FINI);
  if (csv_fini(parser_.get(), &Fill::cell, &Fill::record, this) != 0)
    file_.fail("ends within the record of line " + std::to_string(record_.line) +
               ": a quotation mark is opened there and never closed");
  if (fault_) std::rethrow_exception(fault_);
}

std::string csvCell(const std::string& text) {
  const bool isPlain = text.find_first_of(",;\t\"\r\n") == text.npos && trim(text) == text;
  return isPlain ? text : '"' + replaceAll(text, "\"", "\"\"") + '"';
}

}  // namespace autonotify::host
