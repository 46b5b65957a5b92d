#pragma once

#include <QLabel>
#include <QTableView>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "binding/Binding.h"
#include "binding/FrozenColumns.h"
#include "binding/GridCellDelegate.h"
#include "binding/GridTableModel.h"
#include "binding/GridTotals.h"
#include "binding/column_fit.h"

namespace autonotify::desktop {

/// A grid in a table view. Rows are of one height, so that the view asks for those alone that it
/// shows.
class GridBinding : public BindingOf<Grid, QTableView> {
 public:
  GridBinding(Form& form, Grid& control, QTableView& widget);
  ~GridBinding() override;

 protected:
  void drawState() override;
  void drawValue() override;
  void drawList() override;
  void drawRows(const RowChange& change) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void bindTable();
  void bindHeader(QHeaderView& header);
  void placeTotals();
  void drawNothing();
  void drawColumns();
  void drawSortKey();
  void drawColors();
  void drawRowHeight();
  void drawNote();
  /// Finds how far the columns are drawn apart, unless a person sizes one of them.
  void fitToRoom();
  void sizeColumn(int column, int pixels);
  void clickCell(const QModelIndex& index);
  void moveTo(const QModelIndex& index);
  void rightClick();
  bool passKey(const QKeyEvent& key);
  void followEvent(const QEvent& event);
  bool isOfRows(const QObject* watched) const;
  void watchMouse(const QMouseEvent& event);
  /// False while the program changes rows that are still drawn as they were.
  bool isDrawnAsItIs() const;
  bool isButton(int column) const { return control_.get_colType(column) == grid_column::button; }
  /// Of the columns that show.
  struct Widths {
    /// Columns without buttons, and their twips.
    std::vector<std::pair<int, int>> told;
    /// Of days, of which there is none yet.
    std::vector<int> empty;
    int toldButtons = 0;
    int buttons = 0;  ///< pixels, as they are drawn
    bool operator==(const Widths&) const = default;
  };
  Widths widths() const;
  void stretch(const Widths& all, double room);
  ColumnWish wishOf(int column, double told) const;
  double widthOfWords(int column) const;
  /// Of the rows that are measured none has a day in it.
  bool isEmptyOfDays(int column) const;
  double stretchOf(int column) const;
  int widthOfText(const QString& text) const;
  int drawnWidth(int column) const;
  bool isHeadingLong(int column) const;
  void drawHeadingHeight(int lines);
  double pixelsOf(int twips) const;
  int twipsOf(double pixels) const;

  GridLook look_;
  GridTableModel model_;
  GridCellDelegate delegate_;
  std::unique_ptr<FrozenColumns> frozen_;
  std::unique_ptr<GridTotals> totals_;
  std::unique_ptr<QLabel> note_;
  /// How much wider than the program has it a column is drawn, where it is.
  std::map<int, double> stretches_;
  /// As they were when they were fitted last.
  std::optional<Widths> fitted_;
  /// No row is shown, whatever the grid has.
  bool isCleared_ = false;
  bool isSizing_ = false;
  /// The click that comes is the second of a double click.
  bool isSecondClick_ = false;
};

}  // namespace autonotify::desktop
