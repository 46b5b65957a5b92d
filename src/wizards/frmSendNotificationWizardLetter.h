#pragma once

#include "wizards/DocumentComposer.h"

namespace autonotify {

/// The composer of the letter channel. All of a letter is its text.
class frmSendNotificationWizardLetter : public DocumentComposer {
 public:
  frmSendNotificationWizardLetter();

  /// Staff may tick it; the document is the same.
  CheckBox chkUseHeader{*this, "chkUseHeader", "Use Company Header For Letterhead"};

 protected:
  std::vector<Control*> furtherInputs() override { return {&chkUseHeader}; }
};

}  // namespace autonotify
