#include "binding/Binding.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QVariant>
#include <QWidget>

namespace autonotify::desktop {
namespace {

QColor colorOf(std::int32_t blueGreenRed) {
  return {blueGreenRed & 0xFF, blueGreenRed >> 8 & 0xFF, blueGreenRed >> 16 & 0xFF};
}

QWidget& focusWidgetOf(QWidget& widget) {
  QWidget* proxy = widget.focusProxy();
  return proxy ? *proxy : widget;
}

}  // namespace

Binding::Binding(Form& form, Control& control, QWidget& widget)
    : form_(form), control_(control), widget_(widget) {
  control_.onRender = [this](Aspect aspect) { draw(aspect); };
  focusWidgetOf(widget_).installEventFilter(this);
}

Binding::~Binding() {
  control_.onRender = nullptr;
}

void Binding::render() {
  for (const Aspect aspect : {Aspect::list, Aspect::value, Aspect::state}) draw(aspect);
}

void Binding::draw(Aspect aspect) {
  const bool wasDrawing = std::exchange(isDrawing_, true);
  switch (aspect) {
    case Aspect::state:
      widget_.setEnabled(control_.isReachable() || !control_.isShown());
      widget_.setVisible(control_.isShown());
      if (const auto color = control_.backColor()) {
        QPalette palette = widget_.palette();
        palette.setColor(widget_.backgroundRole(), colorOf(*color));
        widget_.setPalette(palette);
        widget_.setAutoFillBackground(true);
      }
      drawState();
      break;
    case Aspect::value:
      drawValue();
      break;
    case Aspect::list:
      drawList();
      drawValue();
      break;
    case Aspect::focus:
      takeFocus();
      break;
  }
  isDrawing_ = wasDrawing;
}

void Binding::takeFocus() {
  if (form_.focused() == &control_ && !focusWidgetOf(widget_).hasFocus()) widget_.setFocus();
}

void Binding::renderFocus() {
  if (form_.isVisible() && form_.focused()) form_.focused()->renderFocus();
}

bool Binding::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::FocusIn:
      // A message that a reaction shows takes the focus away and gives it back.
      if (isMovingFocus_ || !control_.takesFocus() || form_.focused() == &control_) break;
      isMovingFocus_ = true;
      pass([this](Person& person) { person.tabTo(control_); });
      isMovingFocus_ = false;
      break;
    case QEvent::KeyPress:
      if (passKey(static_cast<QKeyEvent&>(*event))) return true;
      break;
    case QEvent::KeyRelease:
      if (control_.onKeyUp && form_.isVisible() && control_.isReachable())
        Person(form_).releaseKey(control_, static_cast<QKeyEvent*>(event)->key());
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

bool Binding::passKey(QKeyEvent& event) {
  const QString text = event.text();
  if (isReplacingKey_ || !control_.onKeyPress || text.isEmpty() || !form_.isVisible() ||
      !control_.isReachable())
    return false;
  const int key = text.front().unicode();
  const int accepted = Person(form_).pressKey(control_, key);
  if (accepted == key) return false;
  if (accepted == 0) return true;
  isReplacingKey_ = true;
  QKeyEvent replaced(QEvent::KeyPress, 0, event.modifiers(), QString(QChar(accepted)));
  QCoreApplication::sendEvent(&focusWidgetOf(widget_), &replaced);
  isReplacingKey_ = false;
  return true;
}

}  // namespace autonotify::desktop
