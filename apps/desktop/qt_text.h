#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace autonotify::desktop {

// Texts are UTF-8 in the component and QString on the screen.

inline QString shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string plain(const QString& text) {
  return text.toStdString();
}

/// What went wrong, for the person; the details on further lines are not.
inline QString faultOf(std::string_view description) {
  return shown(description).section('\n', 0, 0);
}

}  // namespace autonotify::desktop
