#pragma once

#include <QSet>
#include <QString>

namespace autonotify::desktop {

/// The names of the merge fields that there are.
struct FieldNames {
  QSet<QString> all;
  /// Those that take a format.
  QSet<QString> dates;
};

}  // namespace autonotify::desktop
