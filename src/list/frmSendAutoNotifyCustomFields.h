#pragma once

#include <array>
#include <string>

#include "contract/rows.h"
#include "list/SettingsWindow.h"
#include "platform/controls/Label.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/control_array.h"

namespace autonotify {

/// The names that the firm gives its custom fields: five of each kind.
class frmSendAutoNotifyCustomFields : public SettingsWindow {
 public:
  frmSendAutoNotifyCustomFields();

  /// Shows the window until the person is done.
  void Initialize();

  static constexpr std::size_t fieldCount = 25;
  std::array<Label, fieldCount> lblField = controlArray<Label, fieldCount>(*this, "lblField");
  std::array<TextBox, fieldCount> txtField = controlArray<TextBox, fieldCount>(*this, "txtField");
  Button cmdApply{*this, "cmdApply", "Apply"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 protected:
  bool saveFields() override;

 private:
  void populateFieldNames();
  void saveName(const Row& row, std::size_t field);
  void noteChange(Step&) { isDirty_ = true; }

  bool isDirty_ = false;
  /// As they are stored.
  std::array<std::string, fieldCount> names_;
};

}  // namespace autonotify
