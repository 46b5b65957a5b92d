#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "platform/date_time_text.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace autonotify::test {

inline std::vector<std::string> split(const std::string& text, char separator = '|') {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

/// In the files a control character stands as its picture, "␊", so does a blank at an end of a
/// cell, and any byte that could not be seen as "⟨E9⟩".
inline std::string textOfCell(std::string cell) {
  for (char32_t c = 0; c <= U' '; ++c) {
    std::string picture;
    appendUtf8(picture, 0x2400 + c);
    cell = replaceAll(cell, picture, std::string(1, static_cast<char>(c)));
  }
  for (std::size_t at = cell.find("⟨"); at != cell.npos; at = cell.find("⟨", at + 1))
    cell.replace(at, 8, 1, static_cast<char>(std::stoi(cell.substr(at + 3, 2), nullptr, 16)));
  return cell;
}

/// The rows below "[table]" in a file of the test's folder, down to an empty line, cut at their
/// tabs; each has at least `cells`.
inline std::vector<std::vector<std::string>> rowsOf(const std::string& file,
                                                    const std::string& table, std::size_t cells) {
  std::ifstream stream(AUTONOTIFY_TEST_FOLDER + file);
  std::string line;
  while (std::getline(stream, line) && line != "[" + table + "]") continue;
  std::vector<std::vector<std::string>> rows;
  while (std::getline(stream, line) && !line.empty()) {
    std::vector<std::string>& row = rows.emplace_back(split(line, '\t'));
    for (std::string& cell : row) cell = textOfCell(cell);
    row.resize(std::max(cells, row.size()));
  }
  EXPECT_FALSE(rows.empty()) << table;
  return rows;
}

/// A cell as a number, as a flag ("yes" or "True"), as a moment or as its text.
template <class Cell>
Cell cellAs(const std::string& cell) {
  if constexpr (std::is_same_v<Cell, bool>)
    return cell == "yes" || cell == "True";
  else if constexpr (std::is_same_v<Cell, DateTime>)
    return parseDateTime(cell).value();
  else if constexpr (std::is_same_v<Cell, std::string>)
    return cell;
  else
    return static_cast<Cell>(std::stol(cell));
}

/// The first cells of a row as these types.
template <class... Cells>
std::tuple<Cells...> cellsAs(const std::vector<std::string>& row) {
  std::tuple<Cells...> result;
  auto cell = row.begin();
  std::apply([&](Cells&... each) { ((each = cellAs<Cells>(*cell++)), ...); }, result);
  return result;
}

/// The rows of a table so.
template <class... Cells>
std::vector<std::tuple<Cells...>> casesOf(const std::string& file, const std::string& table) {
  std::vector<std::tuple<Cells...>> cases;
  for (const auto& row : rowsOf(file, table, sizeof...(Cells)))
    cases.push_back(cellsAs<Cells...>(row));
  return cases;
}

/// Expects of each row that what is made of its first cell is the second.
template <class Make>
void expectRows(const std::string& file, const std::string& table, Make make) {
  for (const auto& row : rowsOf(file, table, 2))
    EXPECT_EQ(make(row[0]), row[1]) << table << ": " << row[0];
}

}  // namespace autonotify::test
