#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProgressBar>
#include <QRadioButton>
#include <stdexcept>

#include "binding/Binding.h"
#include "binding/DateBinding.h"
#include "binding/GridBinding.h"
#include "binding/list_bindings.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/TextBox.h"
#include "qt_text.h"
#include "richtext/RichTextBinding.h"

namespace autonotify::desktop {
namespace {

/// Buttons, ticks and options: the program learns of a click before the focus moves.
template <class ControlType, class WidgetType>
class ButtonBinding : public BindingOf<ControlType, WidgetType> {
 public:
  ButtonBinding(Form& form, ControlType& control, WidgetType& widget)
      : BindingOf<ControlType, WidgetType>(form, control, widget) {
    widget.setFocusPolicy(Qt::TabFocus);
    widget.setAutoExclusive(false);
    QObject::connect(&widget, &QAbstractButton::clicked, this, [this] {
      const auto click = [this](Person& person) { person.click(this->control_); };
      this->widget_.property("actsAlone").toBool() ? this->passAlone(click) : this->pass(click);
    });
  }

 protected:
  void drawState() override {
    if (this->hasCaption()) this->widget_.setText(shown(this->control_.caption()));
  }
  void drawValue() override {
    if constexpr (requires { this->control_.value(); })
      this->widget_.setChecked(this->control_.value());
  }
};

class LabelBinding : public BindingOf<Label, QLabel> {
 public:
  LabelBinding(Form& form, Label& control, QLabel& widget) : BindingOf(form, control, widget) {
    widget.setTextFormat(Qt::PlainText);
  }

 protected:
  void drawState() override {
    if (hasCaption()) widget_.setText(shown(control_.caption()));
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonRelease && control_.onClick &&
        isClick(static_cast<QMouseEvent&>(*event)))
      pass([this](Person& person) { person.click(control_); });
    return Binding::eventFilter(watched, event);
  }

 private:
  bool isClick(const QMouseEvent& event) const {
    return event.button() == Qt::LeftButton && widget_.rect().contains(event.position().toPoint());
  }
};

class FrameBinding : public BindingOf<Frame, QWidget> {
 public:
  using BindingOf::BindingOf;

 protected:
  void drawState() override {
    auto* group = qobject_cast<QGroupBox*>(&widget_);
    if (group && hasCaption()) group->setTitle(shown(control_.caption()));
  }
};

class TextBinding : public BindingOf<TextBox, QLineEdit> {
 public:
  TextBinding(Form& form, TextBox& control, QLineEdit& widget) : BindingOf(form, control, widget) {
    connect(&widget, &QLineEdit::textEdited, this, [this](const QString& text) {
      pass([&](Person& person) { person.edit(control_, plain(text)); });
    });
  }

 protected:
  void drawValue() override {
    const QString text = shown(control_.text());
    if (widget_.text() != text) widget_.setText(text);
  }
};

class ProgressBinding : public BindingOf<ProgressBar, QProgressBar> {
 public:
  using BindingOf::BindingOf;

 protected:
  void drawValue() override {
    widget_.setRange(control_.minimum(), control_.maximum());
    widget_.setValue(std::clamp(control_.value(), control_.minimum(), control_.maximum()));
  }
};

using Maker = std::unique_ptr<Binding> (*)(Form&, Control&, QWidget*);

/// Null when the control is of another kind than ControlType.
template <class BindingType, class ControlType, class WidgetType>
std::unique_ptr<Binding> make(Form& form, Control& control, QWidget* widget) {
  auto* typed = dynamic_cast<ControlType*>(&control);
  if (!typed) return nullptr;
  auto* drawn = qobject_cast<WidgetType*>(widget);
  if (!drawn) {
    throw std::logic_error(
        form.name() + "." + control.name() + ": " +
        (widget ? "the layout has another kind of widget" : "the layout has no such widget"));
  }
  return std::make_unique<BindingType>(form, *typed, *drawn);
}

/// One row for each kind of control that is drawn.
constexpr Maker makers[] = {
    make<ButtonBinding<Button, QAbstractButton>, Button, QAbstractButton>,
    make<ButtonBinding<CheckBox, QAbstractButton>, CheckBox, QAbstractButton>,
    make<ButtonBinding<OptionButton, QRadioButton>, OptionButton, QRadioButton>,
    make<LabelBinding, Label, QLabel>,
    make<FrameBinding, Frame, QWidget>,
    make<TextBinding, TextBox, QLineEdit>,
    make<ComboBinding, ComboBox, QComboBox>,
    make<ListBinding, ListBox, QListWidget>,
    make<DateBinding, DatePicker, CalendarButton>,
    make<ProgressBinding, ProgressBar, QProgressBar>,
    make<TabBinding, TabControl, QTabWidget>,
    make<TreeBinding, TreeView, QTreeWidget>,
    make<GridBinding, Grid, QTableView>,
    make<RichTextBinding, RichTextBox, RichTextEditor>,
};

}  // namespace

std::unique_ptr<Binding> bindControl(Form& form, Control& control, QWidget& root) {
  auto* widget = root.findChild<QWidget*>(shown(control.name()));
  for (const Maker maker : makers) {
    if (auto binding = maker(form, control, widget)) return binding;
  }
  return nullptr;
}

}  // namespace autonotify::desktop
