#pragma once

#include "wizards/NotificationComposer.h"

namespace autonotify {

/// The composer of the telephone channel: a reminder to a person at the firm that a call is due.
///
/// Nothing is sent. Where the message is about a call to make now (InitializeNotifyNow,
/// InitializeSendAuto) the buttons are its outcomes: Finish says that the call was made, Cancel
/// that nobody answered. A call made in InitializeNotifyNow leaves no trace, not even the fields.
class frmSendNotificationWizardPhone : public NotificationComposer {
 public:
  frmSendNotificationWizardPhone();

  TextBox txtToCall{*this, "txtToCall"};
  ComboBox cboPhoneNumber{*this, "cboPhoneNumber"};
  TextBox txtAvailableTimes{*this, "txtAvailableTimes"};

 protected:
  void populateLists() override;
  void finish(Step& step) override;
};

}  // namespace autonotify
