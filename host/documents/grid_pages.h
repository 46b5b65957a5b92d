#pragma once

#include "host/documents/PageFlow.h"
#include "platform/controls/Grid.h"

namespace autonotify::host {

/// In points.
inline constexpr Report::Margins gridMargins{36, 36, 36, 45};

/// Turned where that is wished, or where upright paper is too narrow for the columns.
Paper paperOf(const Grid& grid, const GridDialog& printed);

/// Draws the title and the rows below the headings, which each page repeats. The columns that show,
/// up to the last one that is printed, share the width in proportion to theirs; days are not cut
/// off.
void drawGrid(PageFlow& flow, const Grid& grid, const GridDialog& printed);

}  // namespace autonotify::host
