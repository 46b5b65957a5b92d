#pragma once

#include <QFrame>
#include <QLabel>

class QVBoxLayout;

namespace autonotify::desktop {

/// What belongs together, on a ground of its own.
class Card : public QFrame {
  Q_OBJECT

 public:
  explicit Card(QWidget* parent);

 protected:
  /// A label for plain text, in the layout or by itself.
  QLabel* addLabel(const char* name, bool isSecondary = false);
  QLabel* newLabel(const char* name, bool isSecondary = false);
  void asHeading(QLabel& label);
  /// A line with the labels at its two ends.
  void addPair(QLabel* left, QLabel* right);
  void addRule();

  QVBoxLayout* layout_;
};

}  // namespace autonotify::desktop
