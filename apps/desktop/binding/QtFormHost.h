#pragma once

#include <memory>
#include <vector>

#include "binding/FormWindow.h"
#include "platform/controls/FormHost.h"

namespace autonotify::desktop {

/// Shows the component's windows as dialogs above a window of the program.
class QtFormHost : public FormHost {
 public:
  /// `program` outlives this object.
  explicit QtFormHost(QWidget& program) : program_(program) {}

  void showModal(Form& form, HostObject* owner) override;
  void formHidden(Form& form) override;
  void repaint(Form& form) override;
  void popUpMenu(Form& form, Menu& menu) override;
  void setPointer(Pointer pointer) override;
  void pumpMessages() override;

 private:
  FormWindow* windowOf(const Form& form);
  QWidget* topWindow();

  QWidget& program_;
  /// The windows on the screen, the topmost last.
  std::vector<std::unique_ptr<FormWindow>> windows_;
};

}  // namespace autonotify::desktop
