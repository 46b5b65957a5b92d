#pragma once

#include <string>
#include <vector>

namespace autonotify::console {

/// Rows of text under a heading, in columns as wide as their widest cell (at most 40 characters).
class TextTable {
 public:
  explicit TextTable(std::vector<std::string> headings) : rows_{std::move(headings)} {}
  void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
  std::string toText() const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace autonotify::console
