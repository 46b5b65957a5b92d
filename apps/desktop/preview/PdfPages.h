#pragma once

#include <QPdfSearchModel>
#include <QPdfView>
#include <vector>

namespace autonotify::desktop {

/// The pages of a document below each other, with the places marked where a text was found.
class PdfPages : public QPdfView {
  Q_OBJECT

 public:
  /// `document` outlives the pages.
  PdfPages(QPdfDocument& document, QWidget* parent);

  int pages() const;
  /// From 0.
  int page() const;
  /// Shows the page from its top; the nearest one where there is none of the number.
  void turnTo(int page);
  /// Of the size on paper.
  int zoomPercent() const;
  void zoomTo(int percent);
  void enlarge();
  void reduce();

  /// Marks every place of the text; none for an empty text.
  void find(const QString& text);
  int found() const { return found_.rowCount({}); }
  /// The place that is shown, from 0; -1 for none.
  int current() const { return current_; }
  /// Shows the next place, or the one before; after the last comes the first.
  void showFound(bool isBackward);

 signals:
  /// What was found, or which place is shown.
  void foundChanged();
  void zoomed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  /// With Ctrl it zooms.
  void wheelEvent(QWheelEvent* event) override;

 private:
  void showPlace(int place);
  void zoomBy(double factor);
  /// How many pixels of the screen stand for a point of the page.
  double scaleOf(int page) const;
  /// Where the pages lie on the viewport.
  std::vector<QRectF> places() const;
  void mark(QPainter& painter, int page, QPointF corner) const;

  QPdfSearchModel found_;
  int current_ = -1;
};

}  // namespace autonotify::desktop
