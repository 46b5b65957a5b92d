#include "TextTable.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <numeric>

#include "host/dialogs/Terminal.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t widestPadding = 40;
constexpr std::size_t narrowestColumn = 8;

std::size_t terminalWidth() {
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The first `width` characters of what is longer, the last of them an ellipsis.
std::string cut(const std::string& cell, std::size_t width) {
  if (characterCount(cell) <= width) return cell;
  std::size_t end = 0;
  for (std::size_t taken = 0; taken + 1 < width; ++taken) {
    do ++end;
    while (end < cell.size() && continuesCharacter(cell[end]));
  }
  return cell.substr(0, end) + "…";
}

/// Takes from the widest column until all fit, or none can give any more.
void narrow(std::vector<std::size_t>& widths, std::size_t screenWidth) {
  const std::size_t gaps = gap * (widths.size() - 1);
  while (std::accumulate(widths.begin(), widths.end(), gaps) > screenWidth) {
    const auto widest = std::max_element(widths.begin(), widths.end());
    if (*widest <= narrowestColumn) return;
    --*widest;
  }
}

}  // namespace

void TextTable::add(std::vector<std::string> cells) {
  for (std::string& cell : cells) {
    cell = host::terminalText(cell);
    std::replace_if(
        cell.begin(), cell.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
  }
  rows_.push_back(std::move(cells));
}

void TextTable::widen(Widths& widths, std::size_t screenWidth) const {
  for (const auto& row : rows_) {
    widths.resize(row.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::size_t width = characterCount(row[i]);
      if (screenWidth > 0 || width <= widestPadding) widths[i] = std::max(widths[i], width);
    }
  }
}

std::string TextTable::toText(Widths widths, std::size_t screenWidth) const {
  if (screenWidth > 0) narrow(widths, screenWidth);
  std::string text;
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string cell = screenWidth > 0 ? cut(row[i], widths[i]) : row[i];
      text += cell;
      if (i + 1 == row.size()) break;
      const std::size_t width = characterCount(cell);
      text.append(std::max(widths[i], width) - width + gap, ' ');
    }
    text += '\n';
  }
  return text;
}

std::string TextTable::toText(std::size_t screenWidth) const {
  Widths widths;
  widen(widths, screenWidth);
  return toText(std::move(widths), screenWidth);
}

std::string TextTable::toText() const {
  return toText(terminalWidth());
}

std::string TextTable::takeText() {
  const std::size_t screenWidth = terminalWidth();
  widen(widthsTaken_, screenWidth);
  std::string text = toText(widthsTaken_, screenWidth);
  rows_.clear();
  return text;
}

}  // namespace autonotify::console
