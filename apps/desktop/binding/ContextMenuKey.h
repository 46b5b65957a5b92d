#pragma once

#include <QObject>

namespace autonotify::desktop {

/// Shift+F10 opens the context menu of what has the focus, in all windows of the program, as the
/// Menu key does, which many keyboards lack.
class ContextMenuKey : public QObject {
 public:
  ContextMenuKey();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace autonotify::desktop
