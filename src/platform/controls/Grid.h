#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/Value.h"
#include "platform/controls/Control.h"
#include "platform/controls/FormHost.h"
#include "platform/controls/GridCells.h"

namespace autonotify {

class DatabaseReference;
class LocaleReference;
class MsgboxClass;
class WorkingFolderReference;
class errorClass;

/// What a column of a grid is made of.
struct GridColumn {
  std::string heading;
  int width = 0;           ///< twips; 0 where the column does not show
  std::int16_t align = 0;  ///< of the grid's own, passed through
  std::int16_t type = 0;   ///< see grid_column
  std::int16_t option = 0;
  bool wordWrap = false;
  Id id = 0;  ///< equal to its place
  bool visible = true;
  bool last = false;
};

/// Types of columns.
namespace grid_column {
inline constexpr std::int16_t text = 0;
inline constexpr std::int16_t hiddenKey = 1;
inline constexpr std::int16_t date = 2;
inline constexpr std::int16_t tick = 3;
inline constexpr std::int16_t button = 6;
}  // namespace grid_column

/// Switches and measures of a grid; flags are 0 and 1, colours as in Control, heights twips. A
/// person may size, sort and edit, and colours are the host's own (-1), until the program says
/// otherwise.
enum class GridSetting {
  CurrentGridType,
  RowCheckBoxes,
  AllowColumnDrag,
  AllowColumnSwap,
  AllowColumnResizing,
  AllowColumnSort,
  DisplayEllipsis,
  AllowEdit,
  FocusRowHighlight,
  FocusRectHide,
  AllowColumnHover,
  ScrollTrack,
  GridLines,
  ThemeColor,
  ThemeStyle,
  AlphaBlendSelection,
  ApplySelectionToImages,
  EditTrigger,
  MinRowHeight,
  AllowWordWrap,
  FreezeAtCol,  ///< columns up to this one stay in sight; -1: none
  ShowFloatingTotalsLine,
  BackColor,
  BackColorEvenRows,
  BackColorEvenRowsEnabled,
  count
};

/// A dialog of the grid's own, which the host shows.
struct GridDialog {
  enum class Kind { settings, properties, printPreview, print };
  Kind kind;
  std::string title = {};  ///< of what is printed
  int lastColumn = 0;      ///< what is printed goes up to this column
  int orientation = 0;
  bool asksFirst = false;
};

/// Rows of cells below columns with headings.
///
/// Rows are counted from 0 in the order in which they stand at present, columns in the order in
/// which they were added. A row or column that is not there throws PlatformError (9).
class Grid : public Control {
 public:
  /// `host` shows the grid's dialogs and outlives it.
  Grid(ControlOwner& owner, FormHost& host, std::string name);

  // What the grid's dialogs need of the host; not owned. The class of each is the host's.
  void put_errorClass(errorClass* errors) { errorClass_ = errors; }
  void put_MsgboxClass(MsgboxClass* messages) { MsgboxClass_ = messages; }
  void put_LocaleReference(LocaleReference* locale) { LocaleReference_ = locale; }
  LocaleReference* get_LocaleReference() const { return LocaleReference_; }
  void put_WorkingFolderReference(WorkingFolderReference* folder) {
    WorkingFolderReference_ = folder;
  }
  void put_DatabaseReference(DatabaseReference* database) { DatabaseReference_ = database; }
  DatabaseReference* get_DatabaseReference() const { return DatabaseReference_; }

  void put(GridSetting setting, int value);
  int get(GridSetting setting) const;
  /// False stops painting while rows go in; True paints all that has changed meanwhile.
  void put_Redraw(bool redraw);
  bool get_Redraw() const { return redraw_; }

  /// Removes every row and keeps the columns.
  void ResetAndClearRows();
  /// Removes rows and columns.
  void ClearAll();
  /// A column that shows and comes without a width is given one.
  void AddColumn(GridColumn column);
  /// A click in a cell of the column is an edit (onBeforeEdit, onAfterEdit). Control and code are
  /// the program's own.
  void BindControl(Id column, Control* control, std::int16_t code);
  /// Appends an empty row and gives its place.
  int AddItem();

  int get_Cols() const { return static_cast<int>(columns_.size()); }
  int get_Rows() const { return cells_.rowCount(); }
  /// The current row, -1 when none is.
  int get_Row() const { return row_; }
  /// A row that is not there: none is current.
  void put_Row(int row);
  /// Twips; the renderer tells it.
  int get_Width() const { return width_; }
  void put_Width(int width) { width_ = width; }
  const std::string& get_ColHeading(int column) const;
  void put_ColHeading(int column, std::string heading);
  int get_ColWidth(int column) const;
  void put_ColWidth(int column, int width);
  std::int16_t get_colType(int column) const;
  bool get_colVisible(int column) const;
  const GridColumn& column(int column) const;
  /// Whether people see the column.
  bool showsColumn(int column) const;
  /// Draws the headings anew.
  void RefreshHeader();

  /// Empty for a cell that nobody filled; a number in digits.
  std::string get_CellText(int row, int column) const;
  void put_CellText(int row, int column, const CellValue& value);
  /// What sorting compares; the text where none is set, and where it was equal to the text.
  void put_CellSortValue(int row, int column, const CellValue& value);
  bool get_cellChecked(int row, int column) const;
  void put_cellChecked(int row, int column, bool checked);

  /// Sorts the rows by up to two keys; equal rows keep their order. A key below column 0 is none.
  void sort(const GridSortKey& first, const GridSortKey& second);
  /// Those of the last sort since the rows came in.
  const std::array<GridSortKey, 2>& sortKeys() const { return sortKeys_; }

  /// Both show the dialog until it is closed; True when the person cancelled.
  bool openHalvornGridSettingsForm();
  bool openHalvornGridPropertiesForm();
  /// The preview of the list, and the print of it.
  void openHalvornGridPrintPreviewForm(const std::string& title, int lastColumn, int orientation);
  void printGrid(bool asksFirst, const std::string& title, int lastColumn);

  // Reactions of the program.
  std::function<void(int row, int column, bool& cancel)> onBeforeEdit;
  /// A tick has been toggled already; `cancel` takes nothing back.
  std::function<void(int row, int column, bool& cancel)> onAfterEdit;
  std::function<void(int row, int column)> onCellButtonClick;
  std::function<void(int row, int column)> onCellImageClick;
  std::function<void()> onScroll;
  /// A mouse button was released: 1 left, 2 right.
  std::function<void(int button)> onMouseUp;
  /// A person has sorted by a heading.
  std::function<void(const GridSortKey& first, const GridSortKey& second)> onSortComplete;

  // What an act of a person does here; see Person.
  bool acceptCellClick(int row, int column);
  bool acceptHeadingClick(int column);
  bool acceptColumnWidth(int column, int width);
  bool acceptRightClick();
  bool acceptScroll() { return raise(onScroll); }
  /// The arrow keys lead to the row.
  bool acceptMove(int row) override;

 private:
  std::size_t place(int column) const;
  void requireCell(int row, int column) const;
  bool showsCell(int row, int column) const;
  /// Tells the renderer, at once or when painting goes on.
  void tell(Aspect aspect);
  void tellRow(RowChange::Kind kind, int row);
  void forgetRows();
  void editCell(int row, int column);
  /// Raises a person's event; False when the rows are no longer the same.
  template <class... Parameters, class... Given>
  bool raiseEvent(std::function<void(Parameters...)> event, Given&... given) {
    const int arrangement = arrangement_;
    if (event) event(given...);
    return arrangement == arrangement_;
  }
  bool showDialog(const GridDialog& dialog) { return host_.showGridDialog(*this, dialog); }

  FormHost& host_;
  errorClass* errorClass_ = nullptr;
  MsgboxClass* MsgboxClass_ = nullptr;
  LocaleReference* LocaleReference_ = nullptr;
  WorkingFolderReference* WorkingFolderReference_ = nullptr;
  DatabaseReference* DatabaseReference_ = nullptr;

  std::array<int, static_cast<std::size_t>(GridSetting::count)> settings_{};
  std::vector<GridColumn> columns_;
  std::vector<bool> isBound_;
  GridCells cells_;
  std::array<GridSortKey, 2> sortKeys_;
  int row_ = -1;
  int width_ = 0;
  bool redraw_ = true;
  bool isStale_ = false;
  /// Another one whenever rows go or change places.
  int arrangement_ = 0;
};

}  // namespace autonotify
