#pragma once

#include <cstdint>

#include "platform/Value.h"

namespace autonotify {

// The settings of each person that the library itself reads and writes: columns of one row of
// `UserGeneralSettings`, which is made the first time it is touched, also by a read. With the
// database closed a read gives its default and a write does nothing. Failures are settled at the
// error dialog.

/// Whether the end of a send in a composer is confirmed. Default False.
bool getAutoSendWizardConfirmation(Id userId);
/// Whether a question comes before a notification is cancelled in a composer. Default False.
bool getCancelAutoNotification(Id userId);

/// Whether the list shows a composer before sending. Default False.
bool getShowMVPreview(Id userId);
void putShowMVPreview(bool value, Id userId);

/// 0 to send an email without a preview, 1 (the default, also for an empty column) to show the
/// email program's window.
std::int16_t getShowEmailPreview(Id userId);
void putShowEmailPreview(std::int16_t value, Id userId);

// Margins of the fax and letter documents, in twips.

constexpr int getTopMargin() {
  return 1440;
}
constexpr int getLeftMargin() {
  return 1440;
}

}  // namespace autonotify
