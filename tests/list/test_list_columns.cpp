#include "LoadedList.h"
#include "platform/text.h"
#include "support/text_table.h"

namespace autonotify::test {
namespace {

const std::string columnsFile = "list_columns.txt";

/// "8=1000 29=1020" as pairs.
std::vector<std::pair<Id, int>> widthsOf(const std::string& text) {
  std::vector<std::pair<Id, int>> widths;
  for (const std::string& each : split(text, ' '))
    widths.emplace_back(std::stoi(each), std::stoi(each.substr(each.find('=') + 1)));
  return widths;
}

class ListColumnsTest : public HostTest {
 protected:
  static Value item(const LoadedList& window, Id column, int number) {
    EXPECT_TRUE(window.list->columns()->selectEntry(column));
    return window.list->columns()->getItem(number);
  }
  static void show(const LoadedList& window, Id column, bool visible) {
    bool done = false;
    window.list->columnVisible(column, visible, done);
    EXPECT_TRUE(done);
  }
  static void fit(const LoadedList& window, bool sizesButtons, bool shrinks) {
    window.list->resizeFlexGrid(sizesButtons, shrinks);
  }
  static void perform(const std::string& act, const LoadedList& window) {
    if (act == "hide and show") {
      show(window, list_column::clientId, false);
      window.list->populateColumns();
      fit(window, false, true);
      show(window, list_column::clientId, true);
    } else if (act == "save") {
      window.list->putFlexGridInformation();
    } else {
      fit(window, act == "default", act == "fit");
    }
  }
  /// What the window is told to sort by.
  static std::string sortOf(LoadedList& window) {
    bool done = false;
    window.events.clear();
    window.list->performSort(done);
    return window.events.empty() ? "" : window.events.back().second;
  }
  void store(const std::string& column, const std::string& text) {
    plainDatabase->connection().exec("UPDATE UserGridSettings2 SET " + column + "='" + text + "'");
  }
};

TEST_F(ListColumnsTest, WidthsFitAndAreKept) {
  for (const auto& [act, width, sized, shown, kept] :
       casesOf<std::string, int, std::string, std::string, std::string>(columnsFile, "widths")) {
    SCOPED_TRACE(act + " in " + std::to_string(width) + ": " + sized);
    plainDatabase->connection().exec("DELETE FROM UserGridSettings2");
    LoadedList window(*this);
    window.grid.put_Width(width);
    for (const auto& [column, twips] : widthsOf(sized)) window.grid.put_ColWidth(column, twips);
    perform(act, window);
    for (const auto& [column, twips] : widthsOf(shown))
      EXPECT_EQ(window.grid.get_ColWidth(column), twips) << column;
    for (const auto& [column, twips] : widthsOf(kept))
      EXPECT_EQ(toInteger(item(window, column, column_item::width)), twips) << column;
  }
}

TEST_F(ListColumnsTest, ListWithoutColumnsCannotBeFitted) {
  LoadedList window(*this);
  for (Id id = list_column::clientId; id <= list_column::lastData; ++id) show(window, id, false);
  window.list->populateColumns();
  errors.answer({error_choice::next});
  fit(window, true, true);
  EXPECT_EQ(errors.recorded().back().number, error_number::divisionByZero);
}

TEST_F(ListColumnsTest, ColumnsStandAsTheirTableHasThem) {
  LoadedList window(*this);
  for (Id id = 0; id < list_column::count; ++id) {
    const ListColumn& told = listColumns[static_cast<std::size_t>(id)];
    const GridColumn& column = window.grid.column(id);
    EXPECT_EQ(std::tuple(column.heading, column.type, column.align, column.visible, column.id),
              std::tuple(told.heading, told.type, told.align, told.isVisible, id));
    EXPECT_EQ(item(window, id, column_item::isData).isNull(), id > list_column::lastData);
  }
  bool done = false;
  window.grid.put_ColHeading(list_column::sent, "?");
  window.list->refreshColumnHeaders(done);
  EXPECT_EQ(window.grid.get_ColHeading(list_column::sent), "Sent");
  window.list->autoNotifyListDisplayType = 0;
  window.list->put_flexGrid(&window.grid);
  EXPECT_FALSE(window.grid.get_colVisible(list_column::clientName));
}

TEST_F(ListColumnsTest, SettingsComeBackToTheirPerson) {
  for (const bool on : {true, false}) {
    const int number = on ? 11 : 10;
    const auto settings = [](clsAutoNotifyFlexGrid& list) {
      return std::tie(list.lockNameColumn, list.FloatTotalBar, list.GridWordWrap,
                      list.displayAltnGridLines, list.LockColumnNum, list.gridBackColour1,
                      list.gridBackColour2);
    };
    const auto told = std::tuple(on, !on, on, !on, number, number + 1, number + 2);
    LoadedList before(*this);
    settings(*before.list) = told;
    before.list->changeSort({8, on ? 2 : 1}, {12, 2});
    show(before, list_column::created, on);
    before.list->putFlexGridInformation();
    LoadedList window(*this);
    EXPECT_EQ(settings(*window.list), told);
    EXPECT_EQ(window.grid.get_colVisible(list_column::created), on);
    EXPECT_EQ(window.grid.get(GridSetting::FreezeAtCol), on ? number : -1);
    EXPECT_EQ(sortOf(window), on ? "- sortEntries 16 24 -1\n" : "- sortEntries 8 24 -1\n");
  }
  EXPECT_EQ(rowCount("UserGridSettings2"), 1);
}

TEST_F(ListColumnsTest, WhatCannotBeReadGivesWayToTheDefaults) {
  LoadedList before(*this);
  EXPECT_EQ(std::pair(before.list->gridBackColour1, before.list->gridBackColour2),
            std::pair(13160660, 12632256));
  EXPECT_EQ(before.list->LockColumnNum, 9);
  show(before, list_column::created, true);
  before.list->putFlexGridInformation();
  const char* const columns = "autoNotifyGridColumnOrderStandAlone";
  const std::string good = toText(valueOf("UserGridSettings2", columns, "UserIDNum=7"));
  for (const auto& [part, other, isTaken] :
       casesOf<std::string, std::string, bool>(columnsFile, "damaged")) {
    const std::size_t at = good.find(part);
    ASSERT_NE(at, good.npos) << part;
    store(columns, std::string(good).replace(at, part.size(), other));
    EXPECT_EQ(LoadedList(*this).grid.get_colVisible(13), isTaken) << part << ": " << other;
  }
  store(columns, good);
  for (const auto& [entries, sorted] : casesOf<std::string, std::string>(columnsFile, "sorts")) {
    store("autoNotifyGridSortOrderStandAlone", "columns/1 " + entries);
    LoadedList window(*this);
    EXPECT_EQ(sortOf(window), sorted.empty() ? "" : "- sortEntries " + sorted + "\n") << entries;
  }
}

}  // namespace
}  // namespace autonotify::test
