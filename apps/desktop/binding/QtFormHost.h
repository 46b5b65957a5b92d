#pragma once

#include <QPointer>
#include <memory>
#include <vector>

#include "binding/FormWindow.h"
#include "binding/window_notes.h"
#include "platform/controls/FormHost.h"

namespace autonotify::desktop {

/// Shows the component's windows as dialogs above a window of the program.
///
/// A window that has hidden itself may still be at work; until it is done, the program's window is
/// out of reach: what a person did there could take the database away beneath it.
class QtFormHost : public FormHost {
 public:
  /// `program` outlives this object.
  explicit QtFormHost(QWidget& program) : program_(program) {}

  /// What the program has to say in the windows that come up from now on.
  void setNotes(WindowNotes notes) { notes_ = std::move(notes); }
  /// Asked when a text comes up that shows its merge fields.
  void setFieldNames(FieldNames fieldNames) { fieldNames_ = std::move(fieldNames); }

  /// A pointer left busy is the standard one again, so that the person sees who is to act.
  void showModal(Form& form, HostObject* owner) override;
  void formHidden(Form& form) override;
  void showReport(Report& report, HostObject* owner) override;
  void reportClosed(Report& report) override;
  void repaint(Form& form) override;
  void popUpMenu(Form& form, Menu& menu) override;
  void setPointer(Pointer pointer) override;
  /// Without a window or a dialog on the screen, what a person does waits.
  void pumpMessages() override;

 private:
  ModalWindow* windowOf(const HostObject& model);
  ModalWindow* topVisible();
  QWidget* topWindow();
  void run(std::unique_ptr<ModalWindow> window);
  void remove(const ModalWindow& window);
  void leave(const HostObject& model);
  void barProgram();
  void admitProgram();

  QWidget& program_;
  WindowNotes notes_;
  FieldNames fieldNames_;
  /// Of the program's window while that is barred.
  QPointer<QWidget> focus_;
  /// The windows that have not returned, the topmost last.
  std::vector<std::unique_ptr<ModalWindow>> windows_;
};

}  // namespace autonotify::desktop
