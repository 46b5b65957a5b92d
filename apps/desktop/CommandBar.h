#pragma once

#include <QToolBar>

namespace autonotify::desktop {

/// Commands in one line: by icon and text where there is room for both, else by their icons, so
/// that none falls out of the line for the sake of the others' texts.
class CommandBar : public QToolBar {
  Q_OBJECT

 public:
  using QToolBar::QToolBar;

 protected:
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace autonotify::desktop
