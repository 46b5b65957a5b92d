#pragma once

#include "contract/Window.h"
#include "platform/controls/Button.h"

namespace autonotify {

/// A window whose fields are stored by Apply, which stays, and by OK, which closes it once they
/// are.
class SettingsWindow : public Window {
 public:
  using Window::Window;

 protected:
  /// True when all is stored.
  virtual bool saveFields() = 0;
  void tieButtons(Button& apply, Button& ok, Button& cancel) {
    react(apply.onClick, "cmdApply_Click", &SettingsWindow::applyFields);
    react(ok.onClick, "cmdOK_Click", &SettingsWindow::acceptFields);
    react(cancel.onClick, "cmdCancel_Click", &SettingsWindow::cancelFields);
  }

 private:
  void applyFields(Step&) { saveFields(); }
  void acceptFields(Step&) {
    if (saveFields()) hide();
  }
  void cancelFields(Step&) { hide(); }
};

}  // namespace autonotify
