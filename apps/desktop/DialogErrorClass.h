#pragma once

#include "host/dialogs/RecordingErrorClass.h"

namespace autonotify::desktop {

/// Settles errors in a dialog with the three choices: go on, leave the operation, try again.
/// Closing the dialog leaves the operation.
class DialogErrorClass : public host::RecordingErrorClass {
 protected:
  int choose(const host::RecordedError& error) override;
};

}  // namespace autonotify::desktop
