#pragma once

#include <QListView>

class QPdfDocument;

namespace autonotify::desktop {

/// The pages of a document in small, below each other, to choose one.
class PageStrip : public QListView {
  Q_OBJECT

 public:
  /// `document` outlives the strip.
  PageStrip(QPdfDocument& document, QWidget* parent);

  /// From 0. Nobody has chosen it.
  void showPage(int page);

 signals:
  void pageChosen(int page);
};

}  // namespace autonotify::desktop
