#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>
#include <cstdlib>

namespace autonotify::desktop {

inline bool isDark(const QColor& ground) {
  return ground.lightness() < 128;
}

inline bool isDark(const QPalette& palette) {
  return isDark(palette.window().color());
}

/// The greys that the list takes for its rows where nobody has chosen a colour; the desktop's own
/// colours stand in.
inline constexpr std::int32_t unchosenRowColor = 0xC8D0D4;
inline constexpr std::int32_t unchosenEvenRowColor = 0xC0C0C0;

/// Of a colour as the program's controls have it.
inline QColor colorOf(std::int32_t blueGreenRed) {
  return {blueGreenRed & 0xFF, blueGreenRed >> 8 & 0xFF, blueGreenRed >> 16 & 0xFF};
}

/// What can be read on that ground.
inline QColor inkOn(const QColor& ground) {
  return isDark(ground) ? Qt::white : Qt::black;
}

/// The ink, unless it is lost on that ground.
inline QColor readableOn(const QColor& ground, const QColor& ink) {
  constexpr int leastDistance = 60;
  return std::abs(ground.lightness() - ink.lightness()) < leastDistance ? inkOn(ground) : ink;
}

/// The ground of what is chosen: words on it are read as before.
inline QColor softAccentOn(const QColor& ground, const QPalette& palette) {
  const QColor accent = palette.color(QPalette::Highlight);
  const double share = isDark(ground) ? 0.35 : 0.13;
  const auto mix = [share](float under, float over) {
    return static_cast<float>(under * (1 - share) + over * share);
  };
  return QColor::fromRgbF(mix(ground.redF(), accent.redF()), mix(ground.greenF(), accent.greenF()),
                          mix(ground.blueF(), accent.blueF()));
}

/// Words in the accent's colour, which alone would be too pale for them.
inline QColor accentInk(const QPalette& palette) {
  const QColor accent = palette.color(QPalette::Highlight);
  return isDark(palette) ? accent.lighter(140) : accent.darker(140);
}

/// A day that has passed, on that ground. Its words tell the same.
inline QColor overdueColor(const QColor& ground) {
  return isDark(ground) ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x26, 0x1e);
}

/// Words that tell of trouble. Colour never tells it alone.
inline QColor troubleColor(const QPalette& palette) {
  return isDark(palette) ? QColor(0xf5, 0xc2, 0x6b) : QColor(0x8a, 0x53, 0x00);
}

inline QColor troubleGround(const QPalette& palette) {
  return isDark(palette) ? QColor(0x45, 0x37, 0x16) : QColor(0xfd, 0xf1, 0xd8);
}

}  // namespace autonotify::desktop
