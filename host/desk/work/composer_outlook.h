#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contract/enumerations.h"
#include "platform/DateTime.h"
#include "platform/controls/Form.h"

namespace autonotify::host {

// The component's windows in which a notification is written, by their names.
inline constexpr const char* emailForm = "frmSendNotificationWizardEmail";
inline constexpr const char* faxForm = "frmSendNotificationWizardFax";
inline constexpr const char* letterForm = "frmSendNotificationWizardLetter";
inline constexpr const char* phoneForm = "frmSendNotificationWizardPhone";

/// That in which a client's tasks of a year are armed.
inline constexpr const char* yearForm = "frmSendNotificationBulk";

/// What becomes of a notification when the window in which it is written is finished, as its fields
/// stand.
struct ComposerOutlook {
  notifyType channel = nt_Email;
  /// It goes out now, or is shown to be printed; it does not wait for a date.
  bool isAtOnce = false;
  /// Whom the fields name; a letter names none.
  std::vector<std::string> to = {};
  /// The date for which it waits; the zero date where none can be read.
  DateTime date = {};
};

/// Nothing for other windows, and where nothing can be finished.
std::optional<ComposerOutlook> readComposerOutlook(const Form& form);

}  // namespace autonotify::host
