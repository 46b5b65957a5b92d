#pragma once

#include <QByteArray>

#include "platform/controls/Grid.h"
#include "platform/controls/Report.h"

namespace autonotify::desktop {

/// The report's pages as a PDF.
QByteArray pdfOf(const Report& report);
QByteArray pdfOf(const Grid& grid, const GridDialog& printed);

}  // namespace autonotify::desktop
