#include <gtest/gtest-spi.h>

#include <array>
#include <limits>
#include <random>

#include "platform/text.h"
#include "support/HeadlessPerson.h"
#include "support/all_controls.h"
#include "support/error_number.h"
#include "support/told_acts.h"

namespace autonotify::test {
namespace {

constexpr GridSortKey noKey{};

/// A window with a grid that tells all that happens to it.
class frmGrid : public Form {
 public:
  explicit frmGrid(FormHost& host)
      : Form(host, "frmGrid", "Grid"), flexGrid(*this, host, "flexGrid") {
    const std::pair<const char*, std::int16_t> columns[] = {{"", grid_column::hiddenKey},
                                                            {"Client", grid_column::text},
                                                            {"Due", grid_column::date},
                                                            {"Sent", grid_column::tick},
                                                            {"", grid_column::button}};
    for (const auto& [heading, type] : columns)
      flexGrid.AddColumn({heading, 1500, 4, type, 5, false, 0, type != grid_column::hiddenKey});
    flexGrid.BindControl(2, nullptr, 12);
    flexGrid.onBeforeEdit = [this](int row, int column, bool& cancel) {
      tell("before", row, column);
      cancel = refuses;
    };
    flexGrid.onAfterEdit = [this](int row, int column, bool&) { tell("after", row, column); };
    flexGrid.onCellButtonClick = [this](int row, int column) { tell("button", row, column); };
    flexGrid.onMouseUp = [this](int button) {
      if (button == 2) tell("right", 2, 0);
    };
    flexGrid.onSortComplete = [this](const GridSortKey& first, const GridSortKey& second) {
      tell("sorted", first.column, first.order);
      if (second.column >= 0) tell("then", second.column, second.order);
    };
  }

  void fill(const std::vector<std::pair<const char*, const char*>>& rows) {
    for (const auto& [client, due] : rows) {
      const int row = flexGrid.AddItem();
      flexGrid.put_CellText(row, 0, Id{row});
      flexGrid.put_CellText(row, 1, client);
      flexGrid.put_CellText(row, 2, due);
      flexGrid.put_CellText(row, 4, "Send Now");
    }
  }
  /// The keys of the rows as they stand.
  std::string order() const {
    std::string keys;
    for (int row = 0; row < flexGrid.get_Rows(); ++row) keys += flexGrid.get_CellText(row, 0) + " ";
    return keys;
  }
  std::string takeLog() { return std::exchange(log_, {}); }

  Grid flexGrid;
  bool refuses = false;

 private:
  void tell(const std::string& what, int first, int second) {
    log_ += what + std::to_string(first) + "/" + std::to_string(second) + " ";
  }

  std::string log_;
};

class Grids : public testing::Test {
 protected:
  ~Grids() override {
    form.unload();
    person.finish();
  }

  HeadlessPerson person;
  frmGrid form{person};
  Grid& grid = form.flexGrid;
};

TEST_F(Grids, KeepWhatIsPutIntoTheirCells) {
  constexpr Id lowest = std::numeric_limits<Id>::min();
  constexpr Id highest = std::numeric_limits<Id>::max();
  const std::array numbers{0, noId, 1 << 29, (1 << 29) - 1, -(1 << 29), lowest, highest};
  const std::array<std::string, 4> texts{"", "Ann", std::string(200'000, 'x'), "after"};
  const auto numberOf = [&](int row) { return numbers[static_cast<std::size_t>(row) % 7]; };
  const auto textOf = [&](int row) { return texts[static_cast<std::size_t>(row) % 4]; };
  for (int round = 0; round < 2; ++round) {
    for (int row = 0; row < 3000; ++row) {
      EXPECT_EQ(grid.AddItem(), row);
      if (row % 5 == round) grid.put_CellText(row, 1, numberOf(row));
      if (row % 5 == 2) grid.put_CellText(row, 1, textOf(row));
      if (row < 2500) grid.put_CellText(row, 2, "Send");
      grid.put_cellChecked(row, 3, row % 3 == 0);
    }
    grid.put_CellText(1100, 2, "");
    for (int row = 0; row < 3000; ++row) {
      EXPECT_EQ(grid.get_CellText(row, 2), row < 2500 && row != 1100 ? "Send" : "") << row;
      const std::string text = row % 5 == 2 ? textOf(row) : std::to_string(numberOf(row));
      EXPECT_EQ(grid.get_CellText(row, 1), row % 5 == 2 || row % 5 == round ? text : "") << row;
      EXPECT_EQ(grid.get_cellChecked(row, 3), row % 3 == 0);
    }
    grid.ResetAndClearRows();
    EXPECT_EQ(grid.get_Rows(), 0);
  }
  grid.AddColumn({"Back again"});
  EXPECT_TRUE(grid.showsColumn(5)) << "it has no width of its own yet";
}

/// What the order of two values should be, thought out once more: nothing, numbers, texts.
bool comesBefore(const std::string& left, const std::string& right) {
  const auto keyOf = [](const std::string& text) {
    if (text.empty()) return std::tuple{0, Id{0}, std::string{}};
    const bool isNumber = text[0] == '-' || (text[0] >= '0' && text[0] <= '9');
    return isNumber ? std::tuple{1, Id{std::stoi(text)}, std::string{}}
                    : std::tuple{2, Id{0}, lowerCase(text)};
  };
  return keyOf(left) < keyOf(right);
}

TEST_F(Grids, SortByTwoKeysAndLeaveEqualRowsInTheirOrder) {
  std::mt19937 random(14);
  const std::string texts[] = {"", "Ann", "ann", "Éva", "éva", "Zoë", "Bob", "b"};
  const Id numbers[] = {-1, 0, 9, 10, 2'000'000'000, std::numeric_limits<Id>::min()};
  std::vector<std::array<std::string, 3>> rows(3000);
  for (int row = 0; row < 3000; ++row) {
    auto& held = rows[static_cast<std::size_t>(grid.AddItem())];
    held[0] = std::to_string(row);
    grid.put_CellText(row, 0, Id{row});
    for (const int column : {1, 2}) {
      const std::string& text = texts[random() % std::size(texts)];
      const Id number = numbers[random() % std::size(numbers)];
      const bool isNumber = random() % 3 == 0;
      const CellValue value = isNumber ? CellValue(number) : CellValue(text);
      held[static_cast<std::size_t>(column)] = isNumber ? std::to_string(number) : text;
      // The text is no help: what is sorted is the value beside it, unless that is the same.
      grid.put_CellText(row, column, column == 1 && random() % 2 ? value : CellValue("same"));
      grid.put_CellSortValue(row, column, value);
    }
  }
  const std::pair<GridSortKey, GridSortKey> sorts[] = {
      {{1, 1}, noKey}, {{2, 2}, {1, 1}}, {noKey, {1, 2}}, {{1, 1}, {2, 2}}};
  for (const auto& [first, second] : sorts) {
    for (const GridSortKey& key : {second, first}) {
      const auto column = static_cast<std::size_t>(key.column);
      std::ranges::stable_sort(rows, [&](const auto& left, const auto& right) {
        if (key.column < 0) return false;
        return key.order == 2 ? comesBefore(right[column], left[column])
                              : comesBefore(left[column], right[column]);
      });
    }
    grid.put_Row(1234);
    const std::string followed = grid.get_CellText(1234, 0);
    grid.sort(first, second);
    EXPECT_EQ(grid.get_CellText(grid.get_Row(), 0), followed);
    std::string expected;
    for (const auto& row : rows) expected += row[0] + " ";
    ASSERT_EQ(form.order(), expected) << first.column << " " << second.column;
  }
  const std::string sorted = form.order();
  grid.put_CellText(grid.AddItem(), 0, "last");
  EXPECT_EQ(form.order(), sorted + "last ");
}

TEST_F(Grids, TellATextOfDigitsFromTheNumber) {
  const CellValue number(2'000'000'000);
  const CellValue digits("2000000000");
  const std::pair<CellValue, CellValue> cells[] = {
      {number, number}, {digits, digits}, {number, digits}, {number, number}};
  for (const auto& [text, sortValue] : cells) {
    const int row = grid.AddItem();
    grid.put_CellText(row, 0, Id{row});
    grid.put_CellText(row, 1, text);
    grid.put_CellSortValue(row, 1, sortValue);
  }
  grid.sort({1, 1}, noKey);
  EXPECT_EQ(form.order(), "0 3 1 2 ") << "numbers come before texts";
}

TEST_F(Grids, StandWhateverAReactionDoesToThem) {
  using Upheaval = void (*)(Grid&);
  const Upheaval upheavals[] = {
      [](Grid& upset) { upset.ResetAndClearRows(); }, [](Grid& upset) { upset.ClearAll(); },
      [](Grid& upset) {
        upset.sort({1, 1}, {2, 2});
      },
      [](Grid& upset) { upset.onBeforeEdit = nullptr, upset.acceptCellClick(1, 3); }};
  for (const Upheaval& upheaval : upheavals) {
    for (int event = 0; event < 5; ++event) {
      frmGrid other(person);
      Grid& upset = other.flexGrid;
      other.fill({{"Bob", "May"}, {"Ann", "June"}});
      int depth = 0;
      const auto enter = [&] {
        if (depth++ == 0) upheaval(upset);
      };
      if (event == 0) upset.onMouseUp = [&](int) { enter(); };
      if (event == 1) upset.onBeforeEdit = [&](int, int, bool&) { enter(); };
      if (event == 2) upset.onAfterEdit = [&](int, int, bool&) { enter(); };
      if (event == 3) upset.onCellButtonClick = [&](int, int) { enter(); };
      if (event == 4) upset.onSortComplete = [&](auto&, auto&) { enter(); };
      upset.acceptCellClick(0, event == 3 ? 4 : 3);
      if (event == 4) upset.acceptHeadingClick(1);
      EXPECT_GT(depth, 0);
      const bool isUpset = event < 2 && &upheaval != &upheavals[3];
      EXPECT_FALSE(isUpset && other.takeLog().find("after") != std::string::npos);
      other.unload();
    }
  }
}

TEST_F(Grids, ShowTheirDialogsThroughTheHost) {
  person.expectWindow(form.name(), [this](WindowInUse& window) {
    person.expectGridDialog(GridDialog::Kind::settings, [&](Grid&, auto&) {
      EXPECT_THROW(window.closeBox(), std::logic_error) << "it lies below";
      return true;
    });
    EXPECT_TRUE(grid.openHalvornGridSettingsForm());
    window.form().hide();
  });
  form.showModal(nullptr);
  person.expectGridDialog(GridDialog::Kind::properties, [](Grid&, auto&) { return false; });
  EXPECT_FALSE(grid.openHalvornGridPropertiesForm());
  const auto expectPrint = [&](GridDialog::Kind kind, int orientation, bool asksFirst) {
    person.expectGridDialog(kind, [=, this](Grid& printed, const GridDialog& dialog) {
      EXPECT_EQ(&printed, &grid);
      EXPECT_EQ(dialog.title + std::to_string(dialog.lastColumn), "Due28");
      EXPECT_EQ(dialog.orientation, orientation);
      EXPECT_EQ(dialog.asksFirst, asksFirst);
      return false;
    });
  };
  expectPrint(GridDialog::Kind::printPreview, 1, false);
  grid.openHalvornGridPrintPreviewForm("Due", 28, 1);
  expectPrint(GridDialog::Kind::print, 0, true);
  grid.printGrid(true, "Due", 28);

  HeadlessPerson strict;
  frmGrid of(strict);
  strict.expectGridDialog(GridDialog::Kind::settings, nullptr);
  EXPECT_NONFATAL_FAILURE(of.flexGrid.openHalvornGridPropertiesForm(), "nobody expected dialog 1");
  of.unload();
  EXPECT_NONFATAL_FAILURE(strict.finish(), "dialog 0 never came");
}

constexpr const char* gridScripts = "../forms/grid_scripts.txt";

/// The acts of a person and of the program, told the same whoever draws the grid. What is watched
/// is not drawn.
class GridScripts : public Grids, public testing::WithParamInterface<std::vector<std::string>> {
 protected:
  /// What happens, or why not.
  template <class Call>
  Act noted(Call call) {
    return [this, run = act(call)](std::vector<std::string> texts) {
      try {
        told_.clear();
        const std::string result = run(texts);
        return result + form.takeLog() + told_;
      } catch (const PlatformError& error) {
        return "error " + toText(error.number());
      } catch (const std::logic_error&) {
        return std::string("impossible");
      }
    };
  }
  void watch() {
    grid.onRender = [this](Aspect aspect) { told_ += "svlf"[static_cast<int>(aspect)]; };
    grid.onRowChange = [this](const RowChange& change) {
      told_ += "+-~"[static_cast<int>(change.kind)] + std::to_string(change.row);
    };
  }

  const std::string name = "flexGrid";
  WindowInUse* window = nullptr;
  const Acts acts = {
      {"watch", noted([this] { watch(); })},
      {"cell", noted([this](int row, int column) { window->clickCell(name, row, column); })},
      {"heading", noted([this](int column) { window->clickHeading(name, column); })},
      {"right", noted([this] { window->rightClick(name); })},
      {"size", noted([this](int column, int width) { window->sizeColumn(name, column, width); })},
      {"sight", noted([this] { EXPECT_TRUE(window->canUse(name)); })},
      {"tick seen", noted([this](int row, int column) { return window->read(name, row, column); })},
      {"refuse", noted([this] { form.refuses = true; })},
      {"forbid sorting", noted([this] { grid.put(GridSetting::AllowColumnSort, 0); })},
      {"forbid editing", noted([this] { grid.put(GridSetting::AllowEdit, 0); })},
      {"forbid sizing", noted([this] { grid.put(GridSetting::AllowColumnResizing, 0); })},
      {"lines", noted([this](int kind) { grid.put(GridSetting::GridLines, kind); })},
      {"row", noted([this](std::string client, std::string due) {
         form.fill({{client.c_str(), due.c_str()}});
       })},
      {"add", noted([this] { grid.AddItem(); })},
      {"add column", noted([this](std::string heading, int width) {
         grid.AddColumn({heading, width});
       })},
      {"text of", noted([this](int row, int column) { return grid.get_CellText(row, column); })},
      {"text is", noted([this](int row, int column, std::string text) {
         grid.put_CellText(row, column, text);
       })},
      {"sorts as", noted([this](int row, int column, std::string text) {
         grid.put_CellSortValue(row, column, text);
       })},
      {"tick of", noted([this](int row, int column) { return grid.get_cellChecked(row, column); })},
      {"tick is", noted([this](int row, int column, bool isTicked) {
         grid.put_cellChecked(row, column, isTicked);
       })},
      {"width of", noted([this](int column) { return grid.get_ColWidth(column); })},
      {"width is", noted([this](int column, int width) { grid.put_ColWidth(column, width); })},
      {"heading is",
       noted([this](int column, std::string heading) { grid.put_ColHeading(column, heading); })},
      {"type of", noted([this](int column) { return int{grid.get_colType(column)}; })},
      {"column", noted([this](int column) { grid.column(column); })},
      {"bind", noted([this](int column) { grid.BindControl(column, nullptr, 0); })},
      {"sort", noted([this](int column, int order) {
         grid.sort({column, static_cast<std::int16_t>(order)}, noKey);
       })},
      {"sort by", noted([this](int column, int order, int next, int nextOrder) {
         grid.sort({column, static_cast<std::int16_t>(order)},
                   {next, static_cast<std::int16_t>(nextOrder)});
       })},
      {"order", noted([this] { return form.order(); })},
      {"current", noted([this] { return grid.get_Row(); })},
      {"current is", noted([this](int row) { grid.put_Row(row); })},
      {"paint", noted([this](bool paints) { grid.put_Redraw(paints); })},
      {"clear rows", noted([this] { grid.ResetAndClearRows(); })},
      {"clear", noted([this] { grid.ClearAll(); })}};

 private:
  std::string told_;
};

TEST_P(GridScripts, GiveWhatTheyTell) {
  const auto script = rowsOf(gridScripts, GetParam()[0], 3);
  if (script[0][0] == "watch") return follow(script, acts);
  person.expectWindow("frmGrid", [&](WindowInUse& shown) {
    window = &shown;
    follow(script, acts);
    form.hide();
  });
  form.showModal(nullptr);
}
INSTANTIATE_TEST_SUITE_P(Grids, GridScripts, testing::ValuesIn(rowsOf(gridScripts, "scripts", 1)));

}  // namespace
}  // namespace autonotify::test
