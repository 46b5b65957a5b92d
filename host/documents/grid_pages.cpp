#include "host/documents/grid_pages.h"

#include <algorithm>
#include <vector>

namespace autonotify::host {
namespace {

constexpr TextLook gridTitleLook{13, PANGO_WEIGHT_SEMIBOLD, 0.1};
constexpr TextLook headingLook{8.5, PANGO_WEIGHT_SEMIBOLD, 0.2, PANGO_ALIGN_LEFT, 1.25};
constexpr TextLook rowLook{8.5, PANGO_WEIGHT_NORMAL, 0, PANGO_ALIGN_LEFT, 1.25};
constexpr double headingRule = 0.75;
constexpr double headingRuleGrey = 0.4;
constexpr int landscape = 2;
constexpr double twipsPerPoint = 20;
/// A day in figures and letters is not cut off.
constexpr int leastDayTwips = 1350;

std::vector<int> printedColumns(const Grid& grid, int last) {
  std::vector<int> columns;
  for (int column = 0; column < grid.get_Cols() && column <= last; ++column) {
    if (grid.showsColumn(column)) columns.push_back(column);
  }
  return columns;
}

int twipsOf(const Grid& grid, int column) {
  const bool isDay = grid.get_colType(column) == grid_column::date;
  return std::max(grid.get_ColWidth(column), isDay ? leastDayTwips : 0);
}

std::string printedText(const Grid& grid, int row, int column) {
  if (grid.get_colType(column) != grid_column::tick) return grid.get_CellText(row, column);
  return grid.get_cellChecked(row, column) ? "Yes" : "";
}

}  // namespace

Paper paperOf(const Grid& grid, const GridDialog& printed) {
  double width = 0;
  for (const int column : printedColumns(grid, printed.lastColumn))
    width += twipsOf(grid, column) / twipsPerPoint;
  const double room = letterPaper.width - gridMargins.left - gridMargins.right;
  return printed.orientation == landscape || width > room ? landscapePaper : letterPaper;
}

void drawGrid(PageFlow& flow, const Grid& grid, const GridDialog& printed) {
  std::vector<PageCell> headings;
  const std::vector<int> columns = printedColumns(grid, printed.lastColumn);
  for (const int column : columns)
    headings.push_back({grid.get_ColHeading(column), double(twipsOf(grid, column))});
  const auto drawHeadings = [&](PageFlow& page) {
    page.row(headings, headingLook);
    page.rule(headingRule, headingRuleGrey);
    page.gap(3);
  };
  flow.text(printed.title, gridTitleLook);
  flow.gap(8);
  drawHeadings(flow);
  flow.setRunningHead(drawHeadings);
  std::vector<PageCell> cells = headings;
  for (int row = 0; row < grid.get_Rows(); ++row) {
    for (std::size_t i = 0; i < cells.size(); ++i)
      cells[i].text = printedText(grid, row, columns[i]);
    flow.row(cells, rowLook);
  }
}

}  // namespace autonotify::host
