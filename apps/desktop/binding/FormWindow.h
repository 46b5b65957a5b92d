#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "binding/Binding.h"

class QEventLoop;

namespace autonotify::desktop {

/// A window of the component on the screen, drawn by the layout of its name.
///
/// The layout is the resource ":/forms/<name>.ui"; each of its widgets that bears a control's name
/// shows that control.
class FormWindow : public QDialog {
  Q_OBJECT

 public:
  /// Throws std::logic_error when there is no such layout or a control has no widget in it.
  FormWindow(Form& form, QWidget* parent);
  ~FormWindow() override;

  Form& form() { return form_; }
  /// Shows the window until leave().
  void runModally();
  void leave();

 protected:
  /// The close box and the Escape key ask the window itself.
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  void bindAll(QWidget& layout);
  void startTimers();

  Form& form_;
  std::vector<std::unique_ptr<Binding>> bindings_;
  QEventLoop* loop_ = nullptr;
};

}  // namespace autonotify::desktop
