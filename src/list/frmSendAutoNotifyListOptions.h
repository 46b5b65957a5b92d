#pragma once

#include <array>

#include "list/SettingsWindow.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/Frame.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/control_array.h"

namespace autonotify {

/// How the current user sends from the list.
class frmSendAutoNotifyListOptions : public SettingsWindow {
 public:
  frmSendAutoNotifyListOptions();

  /// Shows the window until the person is done.
  void Initialize();

  CheckBox chkMorvanePreview{*this, "chkMorvanePreview"};
  Frame fraEmail{*this, "fraEmail", "Email Options"};
  /// By the value that is stored.
  std::array<OptionButton, 2> optEmail = controlArray<OptionButton, 2>(*this, "optEmail");
  Button cmdConfigureEmail{*this, "cmdConfigureEmail", "Configure Email Program"};
  Button cmdApply{*this, "cmdApply", "Apply"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 protected:
  bool saveFields() override;

 private:
  void setupForm();
};

}  // namespace autonotify
