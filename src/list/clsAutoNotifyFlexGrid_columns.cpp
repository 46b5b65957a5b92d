#include "contract/tags.h"
#include "list/clsAutoNotifyFlexGrid.h"

// The columns of the list, how they fit into its width, and the keys by which it is sorted.

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyFlexGrid", name>;

using Events = AutoNotifyFlexGridEvents;

constexpr int scrollBarRoom = 400;
constexpr std::int16_t columnOption = 5;

/// A column whose cells react to a click, with the grid's code for what it is bound to.
struct BoundColumn {
  Id column;
  std::int16_t code;
};
constexpr BoundColumn boundColumns[] = {
    {list_column::clientId, 12}, {list_column::clientName, 12},
    {list_column::name, 15},     {list_column::notificationType, 14},
    {list_column::notifyOn, 12}, {list_column::createdBy, 14},
    {list_column::sent, 12},     {list_column::sentStatus, 12},
    {list_column::sentDate, 12}, {list_column::sentBy, 14}};

constexpr GridSortKey defaultSort[] = {
    {list_column::notifyOn, sort_order::descending},
    {list_column::clientName, sort_order::ascending},
    {list_column::notificationType, sort_order::ascending},
};

const ListColumn& columnOf(Id id) {
  if (id < 0 || id >= list_column::count)
    throw PlatformError(error_number::subscriptOutOfRange, "Subscript out of range", "listColumns");
  return listColumns[static_cast<std::size_t>(id)];
}

/// The buttons have no data.
void addColumnEntry(GridColumnList& list, Id id, bool isVisible) {
  constexpr std::int16_t one = 1;
  const auto& [heading, field, byDefault, width, least, align, type, last] = columnOf(id);
  const Value items[] = {isVisible, id, heading, width, one, field, true, false};
  const std::size_t given = id <= list_column::lastData ? 8 : 6;
  list.addEntry(id, std::span(items).first(given));
}

void addSortEntry(GridColumnList& list, const GridSortKey& key) {
  list.addEntry(key.column, std::array<Value, 2>{key.column, key.order != sort_order::descending});
}

float ratioOf(int available, int total) {
  if (total == 0)
    throw PlatformError(error_number::divisionByZero, "Division by zero", "resizeFlexGrid");
  return static_cast<float>(available) / static_cast<float>(total);
}

/// Visits the entries of the list that `list()` gives.
template <class List, class Visit>
void forEachEntry(Step& step, List&& list, Visit&& visit) {
  step.run([&] { list().moveFirst(); });
  while (!step.value(true, [&] { return list().isAtEnd(); })) {
    visit();
    step.run([&] { list().moveNext(); });
  }
}

}  // namespace

// The structure.

void clsAutoNotifyFlexGrid::createDefaultColumnStructure() {
  procedure(tagOf<"createDefaultColumnStructure">, [&](Step& step) {
    step.run([&] { columnList().clearEntries(); });
    for (Id id = 0; id < list_column::count; ++id) {
      const bool isOfOneClient = id == list_column::clientName && autoNotifyListDisplayType != 2;
      const bool isVisible = columnOf(id).isVisible && !isOfOneClient;
      step.run([&] { addColumnEntry(columnList(), id, isVisible); });
    }
    populateCustomFieldNames();
    createDefaultSortStructure();
  });
}

void clsAutoNotifyFlexGrid::createDefaultSortStructure() {
  procedure(tagOf<"createDefaultSortStructure">, [&](Step& step) {
    step.run([&] { sortList().clearEntries(); });
    for (const GridSortKey& key : defaultSort) step.run([&] { addSortEntry(sortList(), key); });
  });
}

int clsAutoNotifyFlexGrid::getDefaultColumnSize(Id colNum) {
  return procedure(tagOf<"getDefaultColumnSize">, 0, [&](Step& step, int& width) {
    step.assign(width, [&] { return columnOf(colNum).width; });
  });
}

int clsAutoNotifyFlexGrid::getMinimumColumnSize(Id colNum) {
  return procedure(tagOf<"getMinimumColumnSize">, 0, [&](Step& step, int& width) {
    step.assign(width, [&] { return columnOf(colNum).minimumWidth; });
  });
}

void clsAutoNotifyFlexGrid::columnVisible(Id dataColNum, bool colVisible, bool& done) {
  done = procedure(tagOf<"columnVisible">, false, [&](Step& step, bool& result) {
    checkIfEditingField();
    step.run([&] { columnList().selectEntry(dataColNum); });
    step.run([&] { columnList().setItem(column_item::visible, toText(colVisible)); });
    const auto width = [&] { return toInteger(columnList().getItem(column_item::width)); };
    if (colVisible && step.value(0, width) < getMinimumColumnSize(dataColNum)) {
      const int byDefault = getDefaultColumnSize(dataColNum);
      step.run([&] { columnList().setItem(column_item::width, toText(byDefault)); });
    }
    result = true;
  });
}

// The grid's columns.

/// Painting stays off: the load that follows turns it on.
void clsAutoNotifyFlexGrid::populateColumns() {
  const auto self = shared_from_this();
  procedure(tagOf<"populateColumns">, [&](Step& step) {
    columnsBuilt_ = false;
    step.run([&] { grid().put_Redraw(false); });
    step.run([&] { grid().ClearAll(); });
    raise(&Events::setupProgressBar, 1);
    // What was asked for meanwhile may have built them.
    if (columnsBuilt_) return;
    columnsBuilt_ = true;
    populateCustomFieldNames();
    step.run([&] { grid().put(GridSetting::AllowWordWrap, GridWordWrap); });
    const auto list = [&]() -> GridColumnList& { return columnList(); };
    forEachEntry(step, list, [&] { addGridColumn(step); });
    for (const BoundColumn& each : boundColumns)
      step.run([&] { grid().BindControl(each.column, hiddenCtrlBox, each.code); });
    const int frozen = lockNameColumn ? LockColumnNum : -1;
    step.run([&] { grid().put(GridSetting::FreezeAtCol, frozen); });
    step.run([&] { grid().put(GridSetting::ShowFloatingTotalsLine, FloatTotalBar); });
  });
}

/// Of the structure's current entry.
void clsAutoNotifyFlexGrid::addGridColumn(Step& step) {
  const auto item = [&](int number) { return columnList().getItem(number); };
  GridColumn column;
  step.assign(column.visible, [&] { return toFlag(item(column_item::visible)); });
  step.assign(column.id, [&] { return toInteger(item(column_item::id)); });
  step.assign(column.heading, [&] { return toText(item(column_item::heading)); });
  step.assign(column.width, [&] { return toInteger(item(column_item::width)); });
  column.option = columnOption;
  column.wordWrap = GridWordWrap;
  step.run([&] {
    const ListColumn& told = columnOf(column.id);
    column.align = told.align;
    column.type = told.type;
    column.last = told.last;
    grid().AddColumn(column);
  });
}

void clsAutoNotifyFlexGrid::refreshColumnHeaders(bool& done) {
  done = procedure(tagOf<"refreshColumnHeaders">, false, [&](Step& step, bool& result) {
    step.run([&] { grid().put_Redraw(false); });
    populateCustomFieldNames();
    const auto list = [&]() -> GridColumnList& { return columnList(); };
    const auto item = [&](int number) { return columnList().getItem(number); };
    forEachEntry(step, list, [&] {
      const Id id = step.value(noId, [&] { return toInteger(item(column_item::id)); });
      if (id < 0 || id >= list_column::count) return;
      step.run([&] { grid().put_ColHeading(id, toText(item(column_item::heading))); });
    });
    step.run([&] { grid().put_Redraw(true); });
    step.run([&] { grid().RefreshHeader(); });
    result = true;
  });
}

// Widths.

int clsAutoNotifyFlexGrid::countColumns(Step& step) const {
  return step.value(0, [&] { return grid().get_Cols(); });
}
int clsAutoNotifyFlexGrid::columnWidth(Step& step, int column) const {
  return step.value(0, [&] { return grid().get_ColWidth(column); });
}
bool clsAutoNotifyFlexGrid::isButtonColumn(Step& step, int column) const {
  return step.holds([&] { return grid().get_colType(column) == grid_column::button; });
}
bool clsAutoNotifyFlexGrid::isColumnVisible(Step& step, int column) const {
  return step.holds([&] { return grid().get_colVisible(column); });
}

void clsAutoNotifyFlexGrid::saveColumnSizes(bool showsThem) {
  procedure(tagOf<"saveColumnSizes">, [&](Step& step) {
    checkIfEditingField();
    const int columns = countColumns(step);
    for (int column = 0; column < columns; ++column) saveColumnSize(step, column, showsThem);
  });
}

/// A button has a fixed width; a column narrower than its least width takes its default one.
void clsAutoNotifyFlexGrid::saveColumnSize(Step& step, int column, bool showsThem) {
  step.run([&] { columnList().selectEntry(column); });
  int width = columnWidth(step, column);
  const bool isButton = column > list_column::lastData;
  if (isButton) {
    const int fixed = getDefaultColumnSize(column);
    if (width == fixed) return;
    width = fixed;
  } else if (width > 0 && width < getMinimumColumnSize(column)) {
    width = getDefaultColumnSize(column);
  }
  step.run([&] { columnList().setItem(column_item::width, std::max(width, 0)); });
  if (isButton && showsThem) step.run([&] { grid().put_ColWidth(column, width); });
}

void clsAutoNotifyFlexGrid::resizeFlexGrid(bool resizeButtonColumns, bool& allowsReducing) {
  procedure(tagOf<"resizeFlexGrid">, [&](Step& step) {
    checkIfEditingField();
    const float ratio = ratioOfFit(step, resizeButtonColumns);
    const int columns = ratio == 0 ? 0 : countColumns(step);
    const bool scales = allowsReducing || ratio > 1;
    for (int column = 0; column < columns; ++column) {
      if (!isColumnVisible(step, column) || isButtonColumn(step, column)) continue;
      const double scaled = static_cast<double>(ratio) * columnWidth(step, column);
      const int byDefault = scales ? 0 : getDefaultColumnSize(column);
      step.run([&] { grid().put_ColWidth(column, scales ? toInteger(scaled) : byDefault); });
    }
    saveColumnSizes(false);
  });
}

/// By how much the columns of data have to grow to fill the control beside the buttons; 0 when no
/// room is left for them.
float clsAutoNotifyFlexGrid::ratioOfFit(Step& step, bool resizeButtonColumns) {
  int available = step.value(0, [&] { return grid().get_Width(); }) - scrollBarRoom;
  int total = 0;
  const int columns = countColumns(step);
  for (int column = 0; column < columns; ++column) {
    int width = columnWidth(step, column);
    if (!isButtonColumn(step, column)) {
      if (isColumnVisible(step, column)) total += width;
      continue;
    }
    const int byDefault = getDefaultColumnSize(column);
    if (resizeButtonColumns && width != byDefault) {
      step.run([&] { grid().put_ColWidth(column, byDefault); });
      width = byDefault;
    }
    available -= width;
  }
  return available <= 0 ? 0 : step.value(0.0f, ratioOf, available, total);
}

// Sorting.

/// A person has sorted by a heading.
void clsAutoNotifyFlexGrid::changeSort(const GridSortKey& first, const GridSortKey& second) {
  procedure(tagOf<"changeSort">, [&](Step& step) {
    step.run([&] { sortList().clearEntries(); });
    for (const GridSortKey& key : {first, second}) step.run([&] { addSortEntry(sortList(), key); });
  });
}

void clsAutoNotifyFlexGrid::performSort(bool& done) {
  done = procedure(tagOf<"performSort">, false, [&](Step& step, bool& result) {
    std::array<GridSortKey, 3> keys;
    std::size_t count = 0;
    const auto list = [&]() -> GridColumnList& { return sortList(); };
    forEachEntry(step, list, [&] {
      repairSortKey(step);
      if (count < keys.size()) keys[count++] = sortKey(step);
    });
    if (keys.front().column > 0) raise(&Events::sortEntries, keys);
    result = true;
  });
}

/// A stored key that names no column becomes one that none is sorted by.
void clsAutoNotifyFlexGrid::repairSortKey(Step& step) {
  const auto column = [&] { return toText(sortList().getItem(sort_item::column)); };
  const std::string text = step.value(std::string{}, column);
  if (step.value(true, [&] { return generalUtilities().isWholeNumber(text, 0, -1); })) return;
  step.run([&] { sortList().setItem(sort_item::column, "-1"); });
  step.run([&] { sortList().setItem(sort_item::isAscending, true); });
}

GridSortKey clsAutoNotifyFlexGrid::sortKey(Step& step) const {
  const auto item = [&](int number) { return sortList().getItem(number); };
  GridSortKey key;
  step.assign(key.column, [&] { return toInteger(item(sort_item::column)); });
  const bool isAscending = step.holds([&] { return toFlag(item(sort_item::isAscending)); });
  key.order = isAscending ? sort_order::ascending : sort_order::descending;
  return key;
}

}  // namespace autonotify
