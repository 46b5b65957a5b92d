#pragma once

#include <QString>
#include <QWidget>

namespace autonotify::desktop {

/// The layout ":/forms/<name>.ui" as a widget, owned by `parent`. Throws std::logic_error when
/// there is none or it cannot be read.
QWidget* loadLayout(const QString& name, QWidget* parent);

}  // namespace autonotify::desktop
