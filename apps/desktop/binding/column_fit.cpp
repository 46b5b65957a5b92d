#include "binding/column_fit.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace autonotify::desktop {
namespace {

/// Less does not tell what a cell holds.
constexpr double leastWidth = 60;

using ColumnWidths = std::vector<double>;

double sumOf(const ColumnWidths& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0.0);
}

double leastOf(const ColumnWish& column) {
  return column.isRigid ? std::max(column.told, column.words) : column.told;
}

template <class Width>
ColumnWidths widthsOf(const std::vector<ColumnWish>& columns, Width widthOf) {
  ColumnWidths widths;
  for (const ColumnWish& column : columns) widths.push_back(widthOf(column));
  return widths;
}

/// The width that none exceeds when the widest give way until all fit into the room.
double levelOf(ColumnWidths widths, double room) {
  std::ranges::sort(widths);
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const double level = room / static_cast<double>(widths.size() - i);
    if (widths[i] > level) return level;
    room -= widths[i];
  }
  return std::numeric_limits<double>::max();
}

}  // namespace

std::vector<double> fitColumns(const std::vector<ColumnWish>& columns, double room) {
  ColumnWidths widths = widthsOf(
      columns, [](const ColumnWish& column) { return std::max(leastOf(column), column.heading); });
  const double share = room / sumOf(widths);
  if (share >= 1) {
    for (double& width : widths) width *= share;
    return widths;
  }
  widths = widthsOf(columns, leastOf);
  if (sumOf(widths) <= room) return widths;
  ColumnWidths soft;
  for (const ColumnWish& column : columns) {
    if (column.isRigid)
      room -= leastOf(column);
    else
      soft.push_back(std::min(column.told, column.words));
  }
  const double level = levelOf(soft, room);
  if (level < leastWidth) return widths;
  return widthsOf(columns, [&](const ColumnWish& column) {
    return column.isRigid ? leastOf(column) : std::min({column.told, column.words, level});
  });
}

}  // namespace autonotify::desktop
