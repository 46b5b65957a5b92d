#include "CommandBar.h"

#include <QLayout>

namespace autonotify::desktop {

void CommandBar::resizeEvent(QResizeEvent* event) {
  QToolBar::resizeEvent(event);
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  if (sizeHint().width() > width()) setToolButtonStyle(Qt::ToolButtonIconOnly);
  // At once: until the next turn a button that has room now would be missing.
  layout()->activate();
}

}  // namespace autonotify::desktop
