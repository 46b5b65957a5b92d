#pragma once

#include "wizards/DocumentComposer.h"

namespace autonotify {

/// The composer of the fax channel. A number that is missing is not asked about: it shows on the
/// document.
class frmSendNotificationWizardFax : public DocumentComposer {
 public:
  frmSendNotificationWizardFax();

  TextBox txtTo{*this, "txtTo"};
  TextBox txtFrom{*this, "txtFrom"};
  ComboBox cboFromFaxNumber{*this, "cboFromFaxNumber"};
  ComboBox cboToFaxNumber{*this, "cboToFaxNumber"};
  TextBox txtPages{*this, "txtPages"};
  TextBox txtSubject{*this, "txtSubject"};
  /// Staff may tick it; the document is the same.
  CheckBox chkUseLetterhead{*this, "chkUseLetterhead", "Use Company Header For Letterhead"};

 protected:
  void populateLists() override;
};

}  // namespace autonotify
