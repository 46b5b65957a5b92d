#pragma once

#include <QDialog>

#include "platform/HostObject.h"

class QEventLoop;

namespace autonotify::desktop {

/// A window that shows an object of the component, and in which alone people can act meanwhile.
class ModalWindow : public QDialog {
  Q_OBJECT

 public:
  ModalWindow(HostObject& model, QWidget* parent) : QDialog(parent), model_(model) {}

  const HostObject& model() const { return model_; }
  /// Shows the window until leave(). Throws what was thrown in it.
  void runModally();
  /// Takes the window off the screen.
  virtual void leave();
  /// Draws what has changed, at once.
  virtual void drawNow() { repaint(); }

 protected:
  /// The window has come up.
  virtual void begin() {}

 private:
  HostObject& model_;
  QEventLoop* loop_ = nullptr;
  bool isLeft_ = false;
};

}  // namespace autonotify::desktop
