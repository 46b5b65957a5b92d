#include "RowPrinter.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <utility>

#include "host/dialogs/Terminal.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

std::vector<std::string> headingsOf(const std::vector<RowColumn>& columns) {
  std::vector<std::string> headings;
  for (const RowColumn& column : columns)
    if (column.heading) headings.emplace_back(column.heading);
  return headings;
}

/// `none` stands for null, and for a list that is empty.
std::string cellText(const Json& value, const char* none) {
  if (value.empty()) return none;
  if (value.is_string()) return value.get<std::string>();
  if (!value.is_array()) return value.dump();
  std::string joined;
  for (const Json& each : value) joined += (joined.empty() ? "" : ",") + cellText(each, none);
  return joined;
}

/// As RFC 4180 has it.
std::string quoted(const std::string& cell) {
  const bool isPlain = std::ranges::none_of(
      cell, [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; });
  return isPlain ? cell : '"' + replaceAll(cell, "\"", "\"\"") + '"';
}

std::string csvLine(std::span<const Json> values) {
  std::string line;
  for (const Json& value : values) line += (line.empty() ? "" : ",") + quoted(cellText(value, ""));
  return line + "\r\n";
}

}  // namespace

std::string jsonText(const Json& data) {
  const std::string text = data.dump(2, ' ', false, Json::error_handler_t::replace);
  return replaceAll(replaceAll(text, "\x7F", "\\u007f"), "\xC2\x9B", "\\u009b");
}

RowPrinter::RowPrinter(RowForm form, std::vector<RowColumn> columns, std::size_t rowsTogether)
    : form_(form),
      columns_(std::move(columns)),
      table_(headingsOf(columns_)),
      rowsTogether_(rowsTogether) {
  if (form_ != RowForm::csv) return;
  std::vector<Json> keys;
  for (const RowColumn& column : columns_) keys.emplace_back(column.key);
  print(csvLine(keys));
}

void RowPrinter::add(std::span<const Json> values) {
  ++count_;
  if (form_ == RowForm::json) addJson(values);
  if (form_ == RowForm::csv) print(csvLine(values));
  if (form_ == RowForm::table) addToTable(values);
  if (count_ % rowsTogether_ == 0) std::cout.flush();
}

void RowPrinter::addJson(std::span<const Json> values) {
  Json row;
  for (std::size_t i = 0; i < values.size(); ++i) row[columns_[i].key] = values[i];
  print((count_ > 1 ? ",\n  " : "[\n  ") + replaceAll(jsonText(row), "\n", "\n  "));
}

void RowPrinter::addToTable(std::span<const Json> values) {
  std::vector<std::string> cells;
  for (std::size_t i = 0; i < values.size(); ++i)
    if (columns_[i].heading) cells.push_back(cellText(values[i], "-"));
  table_.add(std::move(cells));
  if (count_ % rowsTogether_ == 0) print(table_.takeText());
}

void RowPrinter::print(const std::string& text) const {
  static const bool isTerminal = isatty(STDOUT_FILENO);
  std::cout << (isTerminal && form_ != RowForm::json ? host::terminalText(text) : text);
  if (!std::cout) throw Refusal("cannot write the output");
}

bool RowPrinter::end() {
  if (form_ == RowForm::json) print(count_ ? "\n]\n" : "[]\n");
  if (form_ == RowForm::table && count_ % rowsTogether_) print(table_.takeText());
  return count_ > 0;
}

}  // namespace autonotify::console
