#include "binding/column_fit.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace autonotify::desktop {
namespace {

/// Less does not tell what a cell holds.
constexpr double leastWidth = 60;

using ColumnWidths = std::vector<double>;

double sumOf(const ColumnWidths& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0.0);
}

double leastOf(const ColumnWish& column) {
  return std::max({column.told, column.headingWord, column.isRigid ? column.words : 0});
}

/// Where no column may be wider than `most`, if it can.
double narrowedTo(double most, const ColumnWish& column) {
  if (column.isRigid) return leastOf(column);
  return std::max(std::min(column.words, most), column.headingWord);
}

template <class Width>
ColumnWidths widthsOf(const std::vector<ColumnWish>& columns, Width widthOf) {
  ColumnWidths widths;
  for (const ColumnWish& column : columns) widths.push_back(widthOf(column));
  return widths;
}

/// All have their share of what is left of the room.
ColumnWidths grown(ColumnWidths widths, double room) {
  const double share = std::max(room / sumOf(widths), 1.0);
  for (double& width : widths) width *= share;
  return widths;
}

/// The width that none exceeds when the widest give way until all fit into the room.
double levelOf(const std::vector<ColumnWish>& columns, double room) {
  constexpr int halvings = 40;
  double fits = 0;
  double exceeds = room;
  for (int i = 0; i < halvings; ++i) {
    const double middle = (fits + exceeds) / 2;
    const auto narrowed = [=](const ColumnWish& each) { return narrowedTo(middle, each); };
    (sumOf(widthsOf(columns, narrowed)) <= room ? fits : exceeds) = middle;
  }
  return fits;
}

}  // namespace

std::vector<double> fitColumns(const std::vector<ColumnWish>& columns, double room) {
  ColumnWidths widths = widthsOf(
      columns, [](const ColumnWish& column) { return std::max(leastOf(column), column.heading); });
  if (sumOf(widths) <= room) return grown(std::move(widths), room);
  const double level = levelOf(columns, room);
  if (level < leastWidth) return widthsOf(columns, leastOf);
  widths = widthsOf(columns, [=](const ColumnWish& each) { return narrowedTo(level, each); });
  return grown(std::move(widths), room);
}

}  // namespace autonotify::desktop
