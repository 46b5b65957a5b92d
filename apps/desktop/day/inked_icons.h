#pragma once

#include <QIcon>

class QColor;
class QPainter;
class QRect;

namespace autonotify::desktop {

/// Of a notification's channel.
QIcon channelIcon(int channel);
/// Draws the icon in one colour, as words beside it are.
void paintInked(QPainter& painter, const QIcon& icon, const QRect& place, const QColor& ink);
/// The icon as a picture of that colour.
QPixmap inked(const QIcon& icon, int size, const QColor& ink, qreal pixelRatio);

}  // namespace autonotify::desktop
