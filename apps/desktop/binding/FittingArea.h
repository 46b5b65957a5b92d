#pragma once

#include <QScrollArea>

namespace autonotify::desktop {

/// Shows a widget whole where the screen has room for it, and with scroll bars where it has not.
/// What takes the focus is brought into sight.
class FittingArea : public QScrollArea {
  Q_OBJECT

 public:
  /// Takes the widget over.
  FittingArea(QWidget& content, QWidget* parent);

  /// What the screen has for a window inside its frame.
  static QSize roomFor(const QWidget& window);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Gives the content all there is, and what it needs at least.
  void fitContent();
  QSize leastAt(int width) const;
  QSize fitted(QSize size) const;
};

}  // namespace autonotify::desktop
