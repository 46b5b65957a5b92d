#pragma once

#include <QIcon>

namespace autonotify::desktop {

/// Lets the program's own icons stand in where the desktop has none of the name, or no theme.
inline void supplyIcons() {
  QIcon::setFallbackThemeName("fallback");
  if (QIcon::themeName().isEmpty()) QIcon::setThemeName(QIcon::fallbackThemeName());
}

}  // namespace autonotify::desktop
