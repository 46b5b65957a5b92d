#pragma once

#include <QColor>
#include <QPalette>

namespace autonotify::desktop {

inline bool isDark(const QPalette& palette) {
  return palette.window().color().lightness() < 128;
}

/// Words that tell of trouble. Colour never tells it alone.
inline QColor troubleColor(const QPalette& palette) {
  return isDark(palette) ? QColor(0xf5, 0xc2, 0x6b) : QColor(0x8a, 0x53, 0x00);
}

}  // namespace autonotify::desktop
