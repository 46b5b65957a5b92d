#pragma once

#include <QObject>
#include <QWidget>
#include <memory>

#include "platform/controls/Person.h"

namespace autonotify::desktop {

/// Ties one control of a window to the widget of its name: draws the control when it changes, and
/// passes what a person does at the widget.
class Binding : public QObject {
 public:
  /// All outlive the binding.
  Binding(Form& form, Control& control, QWidget& widget);
  ~Binding() override;

  /// Draws everything.
  void render();
  /// Gives the widget the focus, if its control has it.
  void takeFocus();

 protected:
  /// Caption, colour, enabled and visible are drawn by draw() already.
  virtual void drawState() {}
  virtual void drawValue() {}
  virtual void drawList() {}

  /// Runs `act(person)` unless the widget changes because the control did, or the window has left
  /// the screen. Afterwards the widget shows what has become of the control, and the focus is where
  /// the window has it.
  template <class Act>
  void pass(Act&& act) {
    if (isDrawing_ || !form_.isVisible() || !control_.isReachable()) return;
    Person person(form_);
    act(person);
    render();
    renderFocus();
  }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void draw(Aspect aspect);
  void renderFocus();
  bool passKey(class QKeyEvent& event);

  Form& form_;
  Control& control_;
  QWidget& widget_;
  bool isDrawing_ = false;
  bool isMovingFocus_ = false;
  bool isReplacingKey_ = false;
};

/// The binding for the kind of control; null for one that is never drawn, such as a timer or a
/// menu. Throws std::logic_error when the widget is of another kind than the control wants.
std::unique_ptr<Binding> bindControl(Form& form, Control& control, QWidget& root);

/// The date as Qt has it, and back. The zero date is an invalid one.
QDate qtDate(DateTime date);
DateTime modelDate(const QDate& date);

}  // namespace autonotify::desktop
