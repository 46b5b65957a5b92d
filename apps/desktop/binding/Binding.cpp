#include "binding/Binding.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPalette>
#include <utility>

#include "binding/qt_key_codes.h"
#include "colors.h"

namespace autonotify::desktop {
namespace {

QWidget& focusWidgetOf(QWidget& widget) {
  QWidget* proxy = widget.focusProxy();
  return proxy ? *proxy : widget;
}

}  // namespace

int Binding::drawings_ = 0;
bool Binding::isAlone_ = false;

/// What widgets tell meanwhile is no act of a person.
class Binding::Drawing {
 public:
  Drawing() { ++drawings_; }
  ~Drawing() { --drawings_; }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;
};

Binding::Binding(Form& form, Control& control, QWidget& widget)
    : form_(form), control_(control), widget_(widget) {
  control_.onRender = [this](Aspect aspect) { draw(aspect); };
  control_.onRowChange = [this](const RowChange& change) { drawRowChange(change); };
  focusWidgetOf(widget_).installEventFilter(this);
}

Binding::~Binding() {
  control_.onRender = nullptr;
  control_.onRowChange = nullptr;
}

void Binding::render() {
  drawNewList();
  for (const Aspect aspect : {Aspect::value, Aspect::state}) draw(aspect);
}

void Binding::draw(Aspect aspect) {
  switch (aspect) {
    case Aspect::state: {
      const Drawing drawing;
      drawEnabled(control_.isReachable() || !control_.isShown());
      widget_.setVisible(control_.isShown());
      drawColor();
      drawState();
      break;
    }
    case Aspect::value: {
      drawNewList();
      const Drawing drawing;
      drawValue();
      break;
    }
    case Aspect::list:
      if (std::exchange(isListNew_, true)) break;
      QMetaObject::invokeMethod(this, &Binding::render, Qt::QueuedConnection);
      break;
    case Aspect::focus:
      takeFocus();
      break;
  }
}

void Binding::drawNewList() {
  if (!std::exchange(isListNew_, false)) return;
  const Drawing drawing;
  drawList();
}

void Binding::drawRowChange(const RowChange& change) {
  if (isListNew_) return;
  const Drawing drawing;
  drawRows(change);
  drawValue();
}

void Binding::drawColor() {
  const auto color = control_.backColor();
  if (!color && !isColored_) return;
  isColored_ = color.has_value();
  QPalette palette;
  if (color) {
    const QColor ground = colorOf(*color);
    const QColor ink = inkOn(ground);
    for (const auto role : {QPalette::Base, QPalette::Window, QPalette::Button})
      palette.setColor(role, ground);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
      palette.setColor(role, ink);
  }
  colored().setPalette(palette);
  colored().setAutoFillBackground(isColored_);
}

bool Binding::hasCaption() {
  hasCaption_ = hasCaption_ || !control_.caption().empty();
  return hasCaption_;
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
      if (passKeyPress(static_cast<QKeyEvent&>(*event))) return true;
      break;
    case QEvent::KeyRelease: {
      const auto& key = static_cast<QKeyEvent&>(*event);
      FaultWatch::guard(
          [&] { Person(form_).releaseKey(control_, keyCodeOf(key), keyShiftOf(key)); });
      break;
    }
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

bool Binding::passKeyPress(QKeyEvent& event) {
  const QString text = event.text();
  if (isReplacingKey_ || !control_.onKeyPress || !isInReach() || !writesCharacter(event))
    return false;
  const int key = text.front().unicode();
  int accepted = 0;
  FaultWatch::guard([&] { accepted = Person(form_).pressKey(control_, key); });
  if (accepted == key) return false;
  if (accepted == 0) return true;
  isReplacingKey_ = true;
  QKeyEvent replaced(QEvent::KeyPress, 0, event.modifiers(), QString(QChar(accepted)));
  QCoreApplication::sendEvent(&focusWidgetOf(widget_), &replaced);
  isReplacingKey_ = false;
  return true;
}

}  // namespace autonotify::desktop
