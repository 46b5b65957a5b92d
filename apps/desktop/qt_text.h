#pragma once

#include <QString>
#include <QStringList>
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

/// The pattern with these in place of "%1" and "%2"; what is put in stays as it is.
inline QString filled(const QString& pattern, const QString& first, const QString& second) {
  QStringList parts = pattern.split("%1");
  for (QString& part : parts) part.replace("%2", second);
  return parts.join(first);
}

/// What went wrong, for the person; the details on further lines are not.
inline QString faultOf(std::string_view description) {
  return shown(description).section('\n', 0, 0);
}

}  // namespace autonotify::desktop
