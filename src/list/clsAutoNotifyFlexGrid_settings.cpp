#include "contract/tags.h"
#include "list/clsAutoNotifyFlexGrid.h"
#include "settings/modUserSettings.h"
#include "settings/user_row.h"

// What is kept of the list for each person.

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyFlexGrid", name>;

constexpr const char* settingsOfUser =
    "SELECT UserGridSettings2.* FROM UserGridSettings2 WHERE UserIDNum = ";
/// By autoNotifyListDisplayType: columns and sort are kept for each view of the list.
constexpr std::array views{"BusinessClients", "PersonalTaxClients", "StandAlone"};

constexpr std::int16_t defaultLockColumn = list_column::clientName;
constexpr int defaultBackColour1 = 13160660;
constexpr int defaultBackColour2 = 12632256;
constexpr int fewestSortKeys = 2;

std::string columnOfView(const char* setting, int displayType) {
  return std::string("autoNotify") + setting + views.at(static_cast<std::size_t>(displayType));
}

/// Runs `body(row)` on the person's settings. Without a database or a person there are none.
template <class Body>
void withSettings(Step& step, Access added, Body&& body) {
  if (!isDatabaseOpen(step)) return;
  const Id userId = currentUser(step);
  if (userId >= 0) withUserRow(step, settingsOfUser, userId, added, body);
}

/// NULL leaves the setting as it is.
template <class Setting, class Convert>
void readSetting(const Row& row, const std::string& column, Setting& setting, Convert&& convert) {
  row.read(setting, column.c_str(), [&](const Value& value) {
    return value.isNull() ? setting : static_cast<Setting>(convert(value));
  });
}

/// False for NULL and for a text that is none of a list.
bool readList(const Row& row, const std::string& column, GridColumnList& list) {
  const Value text = database().getFieldValue(row.handle(), column);
  return !text.isNull() && list.fromText(toText(text));
}

std::int16_t lockColumnOf(const Value& value) {
  const std::int16_t column = toInteger16(value);
  return column < 0 ? defaultLockColumn : column;
}

/// Whether the list's current entry is the column, with items that can be read as a column's.
bool isColumn(GridColumnList& list, Id id) {
  const Value key = list.getEntryKey();
  const Value visible = list.getItem(column_item::visible), number = list.getItem(column_item::id);
  const Value heading = list.getItem(column_item::heading),
              width = list.getItem(column_item::width);
  try {
    toFlag(visible);
    toText(heading);
    return key == Value(id) && toInteger(number) == id && toInteger(width) >= 0;
  } catch (const PlatformError&) {
    return false;
  }
}

/// Whether the list holds all columns in their order, as one of another version does not.
bool holdsColumns(GridColumnList& list) {
  if (list.getEntryCount() != list_column::count) return false;
  list.moveFirst();
  for (Id id = 0; id < list_column::count; ++id, list.moveNext())
    if (!isColumn(list, id)) return false;
  return true;
}

}  // namespace

void clsAutoNotifyFlexGrid::getFlexGridInformation() {
  procedure(tagOf<"getFlexGridInformation">, [&](Step& step) {
    StoredLists stored;
    withSettings(step, keysetRead, [&](const Row& row) { stored = readSettings(row); });
    if (gridBackColour1 == 0) gridBackColour1 = defaultBackColour1;
    if (gridBackColour2 == 0) gridBackColour2 = defaultBackColour2;
    const bool areAll = step.holds([&] { return holdsColumns(columnList()); });
    const int sortKeys = step.value(0, [&] { return sortList().getEntryCount(); });
    if (!stored.columns || !areAll) createDefaultColumnStructure();
    if (!stored.sort || sortKeys < fewestSortKeys) createDefaultSortStructure();
    showMVPreview = getShowMVPreview(currentUser(step));
  });
}

clsAutoNotifyFlexGrid::StoredLists clsAutoNotifyFlexGrid::readSettings(const Row& row) {
  const auto ofView = [&](const char* name) {
    return columnOfView(name, autoNotifyListDisplayType);
  };
  Step& step = row.step();
  StoredLists stored;
  readSetting(row, ofView("GridShowResolved"), autoNotifyListShowSent, toInteger16);
  step.assign(stored.columns,
              [&] { return readList(row, ofView("GridColumnOrder"), columnList()); });
  step.assign(stored.sort, [&] { return readList(row, ofView("GridSortOrder"), sortList()); });
  readSetting(row, "autoNotifyGridLockNameColumn", lockNameColumn, toFlag);
  readSetting(row, "autoNotifyGridLockColumnNum", LockColumnNum, lockColumnOf);
  readSetting(row, "autoNotifyGridFloatTotalBar", FloatTotalBar, toFlag);
  readSetting(row, "autoNotifyGridDisplayAltnGridLines", displayAltnGridLines, toFlag);
  readSetting(row, "autoNotifyGridBackColour1", gridBackColour1, toInteger);
  readSetting(row, "autoNotifyGridBackColour2", gridBackColour2, toInteger);
  readSetting(row, "autoNotifyGridWordWrap", GridWordWrap, toFlag);
  readSetting(row, "autoNotifyGridStartupView", gridStartupView_, toInteger16);
  return stored;
}

void clsAutoNotifyFlexGrid::putFlexGridInformation() {
  procedure(tagOf<"putFlexGridInformation">, [&](Step& step) {
    saveColumnSizes(false);
    storeSettings(step);
  });
}

void clsAutoNotifyFlexGrid::storeSettings(Step& step) {
  withSettings(step, keysetUpdate, [&](const Row& row) { writeSettings(row); });
}

void clsAutoNotifyFlexGrid::writeSettings(const Row& row) {
  const auto ofView = [&](const char* name) {
    return columnOfView(name, autoNotifyListDisplayType);
  };
  row.write(ofView("GridColumnOrder").c_str(), [&] { return columnList().toText(); });
  row.write(ofView("GridSortOrder").c_str(), [&] { return sortList().toText(); });
  row.write("autoNotifyGridDisplayAltnGridLines", displayAltnGridLines);
  row.write("autoNotifyGridBackColour1", gridBackColour1);
  row.write("autoNotifyGridBackColour2", gridBackColour2);
  row.write("autoNotifyGridLockNameColumn", lockNameColumn);
  row.write("autoNotifyGridLockColumnNum", LockColumnNum);
  row.write("autoNotifyGridFloatTotalBar", FloatTotalBar);
  row.write("autoNotifyGridWordWrap", GridWordWrap);
  row.write("autoNotifyGridStartupView", gridStartupView_);
}

}  // namespace autonotify
