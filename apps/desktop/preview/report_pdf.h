#pragma once

#include <QByteArray>

#include "platform/controls/Report.h"

namespace autonotify::desktop {

/// The report's pages as a PDF.
QByteArray pdfOf(const Report& report);

}  // namespace autonotify::desktop
