#include "TextTable.h"

#include <algorithm>

#include "host/services/Terminal.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

constexpr std::size_t widestCell = 40;

/// The cell in one line of at most `widestCell` characters, cut with an ellipsis.
std::string fit(const std::string& cell) {
  std::string line = host::terminalText(cell);
  std::replace(line.begin(), line.end(), '\n', ' ');
  if (characterCount(line) <= widestCell) return line;
  std::size_t end = 0;
  for (std::size_t taken = 0; taken < widestCell - 1; ++taken) {
    do ++end;
    while (end < line.size() && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80);
  }
  return line.substr(0, end) + "…";
}

}  // namespace

std::string TextTable::toText() const {
  std::vector<std::vector<std::string>> fitted = rows_;
  std::vector<std::size_t> widths(rows_.front().size());
  for (auto& row : fitted) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      row[i] = fit(row[i]);
      widths[i] = std::max(widths[i], characterCount(row[i]));
    }
  }
  std::string text;
  for (const auto& row : fitted) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line.append(widths[i] - characterCount(row[i]) + 2, ' ');
    }
    text += line + "\n";
  }
  return text;
}

}  // namespace autonotify::console
