#pragma once

#include <array>
#include <string>

#include "contract/Window.h"
#include "contract/rows.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/control_array.h"
#include "wizards/wizard_channels.h"

namespace autonotify {

/// Asks through which channel a client hears of a diary item at once: email, fax or letter. Finish
/// leads to the channel's composer on a new row.
class frmSendNotificationWizardApptNotifyNow : public Window {
 public:
  frmSendNotificationWizardApptNotifyNow();

  /// Shows the window with the channel ticked, none for another one, until the person is done; the
  /// caller then reads cancelFlag and unloads it. A closed database shows nothing. An item that
  /// cannot be found leaves the client unnamed.
  void InitializeNotifyNow(CurrentDayTimerType kind, Id item, notifyType channel);

  /// True when the person cancelled, here or in the composer, and when nothing could be shown or no
  /// item found.
  bool cancelFlag() const { return cancelFlag_; }

  Label Label2{*this, "Label2"};
  Frame Frame1{*this, "Frame1", "Select A Notification Method"};
  std::array<CheckBox, 3> chkNotify = controlArray<CheckBox, 3>(*this, "chkNotify");
  /// Has no action here, so that it is hidden.
  Button cmdEditNotificationTemplate{*this, "cmdEditNotificationTemplate",
                                     "Edit Notification Template"};
  Button cmdFinish{*this, "cmdFinish", "Finish"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void nameClient(Step& step);
  std::string clientName(const Row& item) const;
  void chooseAlone(Step& step, std::size_t chosen);
  /// Raises no click.
  template <class IsTicked>
  void tick(IsTicked&& isTicked);
  void finish(Step& step);
  void cancel(Step& step);

  CurrentDayTimerType kind_{};
  Id item_ = noId;
  bool suppressesClicks_ = false;
  bool cancelFlag_ = false;
};

}  // namespace autonotify
