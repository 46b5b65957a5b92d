#pragma once

#include <QLabel>

namespace autonotify::desktop {

/// Plain text of one line that ends in dots where it has no room, and does not ask for more.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace autonotify::desktop
