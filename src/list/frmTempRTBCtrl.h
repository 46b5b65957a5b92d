#pragma once

#include "contract/Window.h"
#include "contract/references.h"
#include "platform/controls/RichTextBox.h"

namespace autonotify {

/// Holds a rich text to read it as plain text; nobody sees it.
class frmTempRTBCtrl : public Window {
 public:
  frmTempRTBCtrl() : Window(formHost(), "frmTempRTBCtrl") { rtbTemp.setVisible(false); }

  RichTextBox rtbTemp{*this, "rtbTemp"};
};

}  // namespace autonotify
