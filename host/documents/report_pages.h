#pragma once

#include "host/documents/PageFlow.h"

namespace autonotify::host {

/// Draws the report in the way of its kind; one of an unknown kind is drawn as a letter.
void drawReport(PageFlow& flow, const PrintedReport& report);

}  // namespace autonotify::host
