#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace autonotify::console {

/// Rows of text under a heading, in columns. A cell is one line.
class TextTable {
 public:
  explicit TextTable(std::vector<std::string> headings) { add(std::move(headings)); }
  void add(std::vector<std::string> cells);
  bool isEmpty() const { return rows_.size() < 2; }
  /// The rows since the last call, at first with the heading: for a table that is printed as it
  /// grows. A column is as wide as it had to be so far. Otherwise as toText().
  std::string takeText();
  /// For a screen of `screenWidth` characters the widest columns are narrowed and what does not fit
  /// is cut with an ellipsis. With 0 every cell is whole; cells beyond 40 characters then push
  /// their neighbours aside rather than widening every row.
  std::string toText(std::size_t screenWidth) const;
  /// As wide as the terminal on standard output; whole cells when there is none.
  std::string toText() const;

 private:
  using Widths = std::vector<std::size_t>;

  void widen(Widths& widths, std::size_t screenWidth) const;
  std::string toText(Widths widths, std::size_t screenWidth) const;

  std::vector<std::vector<std::string>> rows_;
  Widths widthsTaken_;
};

}  // namespace autonotify::console
