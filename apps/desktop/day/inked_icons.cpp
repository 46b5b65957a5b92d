#include "day/inked_icons.h"

#include <QPaintDevice>
#include <QPainter>

#include "host/desk/rows/channel_names.h"
#include "qt_text.h"

namespace autonotify::desktop {

QIcon channelIcon(int channel) {
  return QIcon(QString(":/icons/channel-%1.svg").arg(shown(host::channelName(channel))));
}

QPixmap inked(const QIcon& icon, int size, const QColor& ink, qreal pixelRatio) {
  QPixmap picture = icon.pixmap(QSize(size, size), pixelRatio);
  if (picture.isNull()) return picture;
  QPainter painter(&picture);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(picture.rect(), ink);
  return picture;
}

void paintInked(QPainter& painter, const QIcon& icon, const QRect& place, const QColor& ink) {
  const QPixmap picture = inked(icon, place.height(), ink, painter.device()->devicePixelRatioF());
  painter.drawPixmap(place.topLeft(), picture);
}

}  // namespace autonotify::desktop
