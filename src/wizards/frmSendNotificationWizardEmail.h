#pragma once

#include "wizards/NotificationComposer.h"

namespace autonotify {

/// The composer of the email channel.
///
/// Finish stores the fields and, by the mode, sends the message through the user's email program,
/// arms it for its date, or leaves it at that. Without an address in To a question comes before the
/// send; its No leaves the window open with the fields stored. A send that fails shows the email
/// program's words and closes the window all the same, with SendSuccessfulFlag False.
class frmSendNotificationWizardEmail : public NotificationComposer {
 public:
  frmSendNotificationWizardEmail();

  ComboBox cboTo{*this, "cboTo"};
  ComboBox cboCc{*this, "cboCc"};
  ComboBox cboBcc{*this, "cboBcc"};
  TextBox txtSubject{*this, "txtSubject"};
  Label Label40{*this, "Label40"};
  RichTextBox rtbHidden{*this, "rtbHidden"};

 protected:
  void populateLists() override;
  void finish(Step& step) override;

 private:
  bool mayGo(Step& step);
  void send(Step& step);
};

}  // namespace autonotify
