#pragma once

#include <map>

#include "list/clsAutoNotifyFlexGrid.h"
#include "support/HostTest.h"

namespace autonotify::test {

/// The window of a list: keeps what it is told, is entered again where it shows progress, and goes
/// when it is asked to.
struct LoadedList : AutoNotifyFlexGridEvents {
  explicit LoadedList(TestHost& onHost) : host(onHost) {
    grid.put_Width(12000);
    list->searchNotificationSent = false;
    list->put_flexGrid(&grid);
    steps = 0;
  }
  ~LoadedList() { leave(); }
  void leave() {
    if (list) list->leaveWindow();
    list.reset();
  }
  void closeGridParentForm() override {
    list->putFlexGridInformation();
    leave();
  }
  void setupProgressBar(int rows) override { enterAgain("setupProgressBar ", rows); }
  void incrementProgressBar(int done) override { enterAgain("incrementProgressBar ", done); }
  void hideProgressBar() override { tell("hideProgressBar"); }
  void numberOfEntries(int entries) override { tell("numberOfEntries " + std::to_string(entries)); }
  void sortEntries(const std::array<GridSortKey, 3>& keys) override {
    std::string told = "sortEntries";
    for (const GridSortKey& key : keys) told += " " + std::to_string(key.column * key.order);
    tell(told);
  }
  void changeDisplayTextString(const std::string& text) override { tell("sentence " + text); }
  void sentNotification() override {}

  /// Behind a "-" while nothing is painted, with the number of host calls before it.
  void tell(const std::string& event) {
    events.emplace_back(host.calls.log().size(), (grid.get_Redraw() ? "+ " : "- ") + event + "\n");
  }
  void enterAgain(const char* event, int number) {
    tell(event + std::to_string(number));
    const auto [act, last] = acts.equal_range(++steps);
    for (auto each = act; each != last; ++each)
      if (list) each->second();
  }
  /// The ids of the rows.
  std::string rows() const {
    std::string ids;
    for (int row = 0; grid.get_Cols() > 0 && row < grid.get_Rows(); ++row)
      ids += grid.get_CellText(row, list_column::notification) + " ";
    return ids;
  }

  TestHost& host;
  Form form{host.screen, "list"};
  Grid grid{form, host.screen, "AutoNotifyFlexGrid"};
  std::shared_ptr<clsAutoNotifyFlexGrid> list = std::make_shared<clsAutoNotifyFlexGrid>(*this);
  std::vector<std::pair<std::size_t, std::string>> events;
  /// By the step of progress at which the program is entered again.
  std::multimap<int, std::function<void()>> acts;
  int steps = 0;
};

}  // namespace autonotify::test
