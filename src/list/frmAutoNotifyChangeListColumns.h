#pragma once

#include <array>

#include "contract/Window.h"
#include "list/list_columns.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/Frame.h"
#include "platform/controls/control_array.h"

namespace autonotify {

class clsAutoNotifyFlexGrid;

/// Chooses the columns that the list shows.
class frmAutoNotifyChangeListColumns : public Window {
 public:
  frmAutoNotifyChangeListColumns();

  /// Shows the window on the list's columns until the person is done. True when they were changed.
  bool Initialize(clsAutoNotifyFlexGrid& list);

  static constexpr int firstField = list_column::clientId;
  /// By column, from firstField on.
  static constexpr std::size_t fieldCount = list_column::lastData - firstField + 1;

  std::array<Frame, 4> fraGroup = controlArray<Frame, 4>(*this, "fraGroup");
  std::array<CheckBox, fieldCount> chkField =
      controlArray<CheckBox, fieldCount>(*this, "chkField", firstField);
  CheckBox chkWordWrap{*this, "chkWordWrap", "Enable Word Wrap In Columns"};
  Button cmdReset{*this, "cmdReset", "Reset Columns to Default"};
  Button cmdOk{*this, "cmdOk", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void showColumns(Step& step);
  void accept(Step& step);
  void reset(Step& step);
  void cancel(Step& step);

  clsAutoNotifyFlexGrid* list_ = nullptr;
  bool isChanged_ = false;
};

}  // namespace autonotify
