#include "binding/ContextMenuKey.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>

namespace autonotify::desktop {
namespace {

/// Below what the keys act on.
QPoint placeBelow(const QWidget& widget) {
  const auto* view = qobject_cast<const QAbstractItemView*>(&widget);
  if (!view) return widget.inputMethodQuery(Qt::ImCursorRectangle).toRect().bottomLeft();
  const QRect current = view->visualRect(view->currentIndex());
  return view->viewport()->mapTo(&widget, current.isValid() ? current.bottomLeft() : QPoint());
}

}  // namespace

ContextMenuKey::ContextMenuKey() {
  qApp->installEventFilter(this);
}

// A widget that has its own way with the key takes it first.
bool ContextMenuKey::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget || event->type() != QEvent::KeyPress || widget != QApplication::focusWidget() ||
      widget->contextMenuPolicy() == Qt::PreventContextMenu)
    return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F10 || key.modifiers() != Qt::ShiftModifier) return false;
  const QPoint place = placeBelow(*widget);
  QContextMenuEvent wish(QContextMenuEvent::Keyboard, place, widget->mapToGlobal(place));
  QApplication::sendEvent(widget, &wish);
  return true;
}

}  // namespace autonotify::desktop
