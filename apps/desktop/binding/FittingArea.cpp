#include "binding/FittingArea.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

namespace autonotify::desktop {

FittingArea::FittingArea(QWidget& content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidget(&content);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && isAncestorOf(now)) ensureWidgetVisible(now);
  });
}

// A desktop puts at least this around a window that is not on the screen yet.
QSize FittingArea::roomFor(const QWidget& window) {
  const int border = window.style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  return window.screen()->availableSize() - QSize(2 * border, title + border);
}

QSize FittingArea::sizeHint() const {
  return fitted(widget()->sizeHint());
}

QSize FittingArea::minimumSizeHint() const {
  return fitted(widget()->minimumSizeHint());
}

/// A bar takes room of its own, across what does not fit.
QSize FittingArea::fitted(QSize size) const {
  QSize room = roomFor(*window());
  if (const QLayout* around = parentWidget()->layout()) {
    const QMargins margins = around->contentsMargins();
    room = room.shrunkBy(margins);
  }
  const int bar = verticalScrollBar()->sizeHint().width();
  if (size.height() > room.height()) size.rwidth() += bar;
  if (size.width() > room.width()) size.rheight() += bar;
  return size.boundedTo(room);
}

/// The area's own way of resizing takes what wrapped text would like for what it needs.
void FittingArea::fitContent() {
  const int bar = verticalScrollBar()->sizeHint().width();
  QSize room = maximumViewportSize();
  if (leastAt(room.width()).height() > room.height()) room.rwidth() -= bar;
  const QSize least = leastAt(room.width());
  if (least.width() > room.width()) room.rheight() -= bar;
  widget()->resize(room.expandedTo(least));
}

QSize FittingArea::leastAt(int width) const {
  QSize least = widget()->minimumSizeHint();
  const QLayout* layout = widget()->layout();
  if (layout && layout->hasHeightForWidth())
    least.setHeight(layout->totalMinimumHeightForWidth(std::max(width, least.width())));
  return least;
}

void FittingArea::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  fitContent();
}

bool FittingArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    fitContent();
  }
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace autonotify::desktop
