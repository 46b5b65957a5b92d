#pragma once

#include <span>
#include <string>
#include <vector>

#include "Reply.h"
#include "TextTable.h"

namespace autonotify::console {

/// For people, and for programs in two ways.
enum class RowForm { table, json, csv };

struct RowColumn {
  /// In JSON and CSV.
  const char* key;
  /// In the table; null for what people are not shown.
  const char* heading;
};

/// Data as it is printed: the characters that a terminal would obey can only stand in texts.
std::string jsonText(const Json& data);

/// Rows that go to standard output as they come, so that their number costs no memory. JSON that
/// ends early, for an error, is no whole array.
class RowPrinter {
 public:
  /// Rows of a table that are set out together.
  static constexpr std::size_t manyRows = 200;
  /// With a few `rowsTogether` a table is seen to grow, and its columns may not stand in line.
  RowPrinter(RowForm form, std::vector<RowColumn> columns, std::size_t rowsTogether = manyRows);
  /// A value for each column. Throws Refusal when the output cannot be written.
  void add(std::span<const Json> values);
  /// Prints what is left. False when there was no row.
  bool end();

 private:
  void addJson(std::span<const Json> values);
  void addToTable(std::span<const Json> values);
  void print(const std::string& text) const;

  RowForm form_;
  std::vector<RowColumn> columns_;
  TextTable table_;
  std::size_t rowsTogether_;
  std::size_t count_ = 0;
};

}  // namespace autonotify::console
