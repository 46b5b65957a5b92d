#include "day/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace autonotify::desktop {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
  const QRect room = contentsRect();
  const QString cut = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
  if (wordWrap() || cut == text()) return QLabel::paintEvent(event);
  QPainter painter(this);
  style()->drawItemText(&painter, room, static_cast<int>(alignment()), palette(), isEnabled(), cut,
                        foregroundRole());
}

}  // namespace autonotify::desktop
