#include "platform/controls/Grid.h"

#include <algorithm>
#include <utility>

#include "platform/PlatformError.h"

namespace autonotify {
namespace {

constexpr int leftButton = 1;
constexpr int rightButton = 2;
/// Twips: a column that has come back has no width of its own yet.
constexpr int widthOfUnsized = 1440;

[[noreturn]] void throwOutOfRange() {
  throw PlatformError(error_number::subscriptOutOfRange, "Subscript out of range", "Grid");
}

}  // namespace

Grid::Grid(ControlOwner& owner, FormHost& host, std::string name)
    : Control(owner, std::move(name)), host_(host) {
  for (const GridSetting allowed :
       {GridSetting::AllowColumnResizing, GridSetting::AllowColumnSort, GridSetting::AllowEdit})
    put(allowed, 1);
  for (const GridSetting unset :
       {GridSetting::FreezeAtCol, GridSetting::BackColor, GridSetting::BackColorEvenRows})
    put(unset, -1);
}

void Grid::put(GridSetting setting, int value) {
  if (std::exchange(settings_.at(static_cast<std::size_t>(setting)), value) != value)
    tell(Aspect::state);
}

int Grid::get(GridSetting setting) const {
  return settings_.at(static_cast<std::size_t>(setting));
}

void Grid::put_Redraw(bool redraw) {
  redraw_ = redraw;
  if (redraw && std::exchange(isStale_, false)) render(Aspect::list);
}

void Grid::tell(Aspect aspect) {
  if (redraw_)
    render(aspect);
  else
    isStale_ = true;
}

void Grid::tellRow(RowChange::Kind kind, int row) {
  if (redraw_)
    renderRows({kind, row});
  else
    isStale_ = true;
}

void Grid::forgetRows() {
  row_ = -1;
  sortKeys_ = {};
  ++arrangement_;
  tell(Aspect::list);
}

void Grid::ResetAndClearRows() {
  cells_.clearRows();
  forgetRows();
}

void Grid::ClearAll() {
  cells_.clearAll();
  columns_.clear();
  isBound_.clear();
  forgetRows();
}

void Grid::AddColumn(GridColumn column) {
  cells_.addColumn();
  isBound_.push_back(false);
  columns_.push_back(std::move(column));
  int& width = columns_.back().width;
  if (!columns_.back().visible)
    width = 0;
  else if (width <= 0)
    width = widthOfUnsized;
  tell(Aspect::list);
}

void Grid::BindControl(Id column, Control*, std::int16_t) {
  isBound_[place(column)] = true;
}

int Grid::AddItem() {
  cells_.addRow();
  tellRow(RowChange::Kind::added, get_Rows() - 1);
  return get_Rows() - 1;
}

void Grid::put_Row(int row) {
  const int current = row >= 0 && row < get_Rows() ? row : -1;
  if (std::exchange(row_, current) != current) tell(Aspect::value);
}

std::size_t Grid::place(int column) const {
  if (column < 0 || column >= get_Cols()) throwOutOfRange();
  return static_cast<std::size_t>(column);
}

void Grid::requireCell(int row, int column) const {
  place(column);
  if (row < 0 || row >= get_Rows()) throwOutOfRange();
}

const GridColumn& Grid::column(int column) const {
  return columns_[place(column)];
}

bool Grid::showsColumn(int column) const {
  return get_colVisible(column) && get_ColWidth(column) > 0;
}

bool Grid::showsCell(int row, int column) const {
  return row >= 0 && row < get_Rows() && column >= 0 && column < get_Cols() && showsColumn(column);
}

const std::string& Grid::get_ColHeading(int column) const {
  return this->column(column).heading;
}

void Grid::put_ColHeading(int column, std::string heading) {
  std::string& held = columns_[place(column)].heading;
  if (std::exchange(held, std::move(heading)) != held) tell(Aspect::state);
}

int Grid::get_ColWidth(int column) const {
  return this->column(column).width;
}

void Grid::put_ColWidth(int column, int width) {
  GridColumn& held = columns_[place(column)];
  const int shown = held.visible ? std::max(width, 0) : 0;
  if (std::exchange(held.width, shown) != shown) tell(Aspect::state);
}

std::int16_t Grid::get_colType(int column) const {
  return this->column(column).type;
}

bool Grid::get_colVisible(int column) const {
  return this->column(column).visible;
}

void Grid::RefreshHeader() {
  tell(Aspect::state);
}

std::string Grid::get_CellText(int row, int column) const {
  requireCell(row, column);
  return cells_.text(row, column);
}

void Grid::put_CellText(int row, int column, const CellValue& value) {
  requireCell(row, column);
  if (cells_.putText(row, column, value)) tellRow(RowChange::Kind::changed, row);
}

void Grid::put_CellSortValue(int row, int column, const CellValue& value) {
  requireCell(row, column);
  cells_.putSortValue(row, column, value);
}

bool Grid::get_cellChecked(int row, int column) const {
  requireCell(row, column);
  return cells_.isTicked(row, column);
}

void Grid::put_cellChecked(int row, int column, bool checked) {
  requireCell(row, column);
  if (cells_.tick(row, column, checked)) tellRow(RowChange::Kind::changed, row);
}

void Grid::sort(const GridSortKey& first, const GridSortKey& second) {
  std::vector<GridSortKey> keys;
  for (const GridSortKey& key : {first, second}) {
    if (key.column < 0) continue;
    place(key.column);
    keys.push_back(key);
  }
  row_ = cells_.sort(keys, row_);
  sortKeys_ = {first, second};
  ++arrangement_;
  tell(Aspect::list);
}

bool Grid::openHalvornGridSettingsForm() {
  return showDialog({.kind = GridDialog::Kind::settings});
}

bool Grid::openHalvornGridPropertiesForm() {
  return showDialog({.kind = GridDialog::Kind::properties});
}

void Grid::openHalvornGridPrintPreviewForm(const std::string& title, int last, int orientation) {
  showDialog({GridDialog::Kind::printPreview, title, last, orientation});
}

void Grid::printGrid(bool asksFirst, const std::string& title, int lastColumn) {
  showDialog({GridDialog::Kind::print, title, lastColumn, 0, asksFirst});
}

bool Grid::acceptCellClick(int row, int column) {
  if (!showsCell(row, column)) return false;
  put_Row(row);
  if (!raiseEvent(onMouseUp, leftButton)) return true;
  const std::int16_t type = get_colType(column);
  if (type == grid_column::button)
    raiseEvent(onCellButtonClick, row, column);
  else if (type == grid_column::tick || isBound_[place(column)])
    editCell(row, column);
  return true;
}

void Grid::editCell(int row, int column) {
  if (!get(GridSetting::AllowEdit)) return;
  bool cancel = false;
  if (!raiseEvent(onBeforeEdit, row, column, cancel) || cancel) return;
  if (get_colType(column) == grid_column::tick)
    put_cellChecked(row, column, !get_cellChecked(row, column));
  raiseEvent(onAfterEdit, row, column, cancel);
}

bool Grid::acceptHeadingClick(int column) {
  if (column < 0 || column >= get_Cols() || !showsColumn(column)) return false;
  if (!get(GridSetting::AllowColumnSort)) return true;
  const auto [before, older] = sortKeys_;
  const bool turns = before.column == column && before.order == sort_order::ascending;
  const GridSortKey first{column, turns ? sort_order::descending : sort_order::ascending};
  sort(first, before.column == column ? older : before);
  const auto [sorted, second] = sortKeys_;
  raiseEvent(onSortComplete, sorted, second);
  return true;
}

bool Grid::acceptColumnWidth(int column, int width) {
  if (width <= 0 || !get(GridSetting::AllowColumnResizing)) return false;
  if (column < 0 || column >= get_Cols() || !showsColumn(column)) return false;
  put_ColWidth(column, width);
  return true;
}

bool Grid::acceptRightClick() {
  raiseEvent(onMouseUp, rightButton);
  return true;
}

bool Grid::acceptMove(int row) {
  if (row < 0 || row >= get_Rows()) return false;
  put_Row(row);
  return true;
}

}  // namespace autonotify
