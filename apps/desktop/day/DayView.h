#pragma once

#include <QTreeView>

namespace autonotify::desktop {

class DayFilter;

/// The rows of the day under the headings of their groups.
class DayView : public QTreeView {
  Q_OBJECT

 public:
  /// `rows` outlives the view.
  DayView(DayFilter& rows, QWidget* parent);

  /// The first row below a heading.
  void goToFirstRow();

 signals:
  /// A person pressed the row's button, with the mouse or by Enter or Space.
  void pressed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// In the indentation nothing marks a row: the row has its own ground.
  void drawBranches(QPainter* painter, const QRect& place, const QModelIndex& index) const override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

 private:
  void layOut();
  void spanGroups();
  bool isLine(const QModelIndex& index) const { return index.parent().isValid(); }
};

}  // namespace autonotify::desktop
