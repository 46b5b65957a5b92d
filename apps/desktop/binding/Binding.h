#pragma once

#include <QObject>
#include <QWidget>
#include <memory>
#include <utility>

#include "binding/FaultWatch.h"
#include "platform/controls/Person.h"

namespace autonotify::desktop {

/// Ties one control of a window to the widget of its name: draws the control when it changes, and
/// passes what a person does at the widget.
class Binding : public QObject {
 public:
  /// All outlive the binding.
  Binding(Form& form, Control& control, QWidget& widget);
  ~Binding() override;

  const Control& control() const { return control_; }
  QWidget& widget() { return widget_; }

  /// Draws everything at once. A whole list is otherwise drawn when the program is done with it.
  void render();
  /// Gives the widget the focus, if its control has it.
  void takeFocus();

 protected:
  // Enabled, visible and colour are drawn by draw() already.
  virtual void drawState() {}
  virtual void drawValue() {}
  virtual void drawList() {}
  virtual void drawRows(const RowChange&) {}
  virtual void drawEnabled(bool isEnabled) { widget_.setEnabled(isEnabled); }
  /// The part of the widget that a colour is for.
  virtual QWidget& colored() { return widget_; }
  /// False while the program has not given the control a caption: the layout's stays.
  bool hasCaption();

  /// Runs `act(person)` unless the widget changes because a control did, or the control is out of
  /// reach. Afterwards the widget shows what has become of the control, and the focus is where the
  /// window has it.
  template <class Act>
  void pass(Act&& act) {
    if (drawings_ > 0 || !isInReach()) return;
    FaultWatch::guard([&] {
      Person person(form_);
      act(person);
      render();
      renderFocus();
    });
  }

  /// The same, but nothing while another such act is under way: a click that waited meanwhile must
  /// not send a thing twice.
  template <class Act>
  void passAlone(Act&& act) {
    if (std::exchange(isAlone_, true)) return;
    pass(act);
    isAlone_ = false;
  }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Drawing;

  void draw(Aspect aspect);
  void drawNewList();
  void drawRowChange(const RowChange& change);
  void drawColor();
  void renderFocus();
  bool isInReach() const { return form_.isVisible() && control_.isReachable(); }
  bool passKeyPress(class QKeyEvent& event);

  /// How many controls are being drawn at this moment, of any window.
  static int drawings_;
  static bool isAlone_;

  Form& form_;
  Control& control_;
  QWidget& widget_;
  bool hasCaption_ = false;
  bool isColored_ = false;
  bool isListNew_ = true;
  bool isMovingFocus_ = false;
  bool isReplacingKey_ = false;
};

/// A binding that knows the kinds of both sides.
template <class ControlType, class WidgetType>
class BindingOf : public Binding {
 public:
  BindingOf(Form& form, ControlType& control, WidgetType& widget)
      : Binding(form, control, widget), control_(control), widget_(widget) {}

 protected:
  ControlType& control_;
  WidgetType& widget_;
};

/// The binding for the kind of control; null for one that is never drawn, such as a timer or a
/// menu. Throws std::logic_error when the widget is of another kind than the control wants.
std::unique_ptr<Binding> bindControl(Form& form, Control& control, QWidget& root);

}  // namespace autonotify::desktop
