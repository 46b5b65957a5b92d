#pragma once

#include <QHeaderView>

class QAbstractItemView;
class QTableView;
class QTreeView;

namespace autonotify::desktop {

/// The headings of a table, for the keyboard too: Tab comes to them, the arrows go from one to the
/// next, Space or Enter does what a click does, Shift with an arrow sizes the column.
class SortHeader : public QHeaderView {
  Q_OBJECT

 public:
  /// Takes the place of the table's own; to be called before the table is told how to sort.
  static SortHeader& giveTo(QTableView& table);
  static SortHeader& giveTo(QTreeView& tree);

  /// The heading that a key would press; -1 when the keys are elsewhere.
  int current() const { return current_; }
  void setCurrent(int section);

 signals:
  void headingChanged(int section);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintSection(QPainter* painter, const QRect& place, int section) const override;

 private:
  explicit SortHeader(QAbstractItemView& table);
  /// The next one that is shown, to the right (1) or the left (-1) of a place; -1 at the end.
  int shownBeside(int visualIndex, int step) const;
  void press();
  /// Brings it into sight.
  void uncover(int section);
  QString nameOf(int section) const;

  int current_ = -1;
};

}  // namespace autonotify::desktop
