#include <gtest/gtest.h>

#include "platform/controls/Form.h"
#include "platform/controls/Report.h"
#include "support/all_controls.h"

namespace autonotify::test {
namespace {

class Controls : public testing::Test, public FormHost {
 protected:
  void pumpMessages() override {}
  Form form{*this, "frm"};

  using Change = std::pair<std::function<void()>, const char*>;
  /// Each change adds to `log` what it raises.
  static void expectChanges(std::string& log, const std::vector<Change>& changes) {
    for (const auto& change : changes) {
      log.clear();
      change.first();
      EXPECT_EQ(log, change.second) << "change " << &change - changes.data();
    }
  }
};

TEST_F(Controls, AReportThatHasNotComeUpIsNotClosed) {
  Report report(*this, "drFax", "Fax");
  report.onTerminate = [] { FAIL() << "closed"; };
  EXPECT_THROW(report.showModal(nullptr), PlatformError);
  EXPECT_FALSE(report.isShown());
}

TEST_F(Controls, ChangesByTheProgramRaiseTheClickOnce) {
  std::string clicks;
  CheckBox box(form, "chk");
  auto options = controlArray<OptionButton, 3>(form, "opt");
  ComboBox combo(form, "cbo");
  TabControl tabs(form, "SSTab1");
  for (const char* entry : {"a", "b"}) combo.addItem(entry);
  tabs.setPages({"one", "two"});
  for (Control* control : form.controls())
    control->onClick = [&clicks, control] { clicks += control->name() + " "; };
  const std::vector<Change> changes = {
      {[&] { box.setValue(true); }, "chk "},
      {[&] { box.setValue(true); }, ""},
      {[&] { box.setValue(false); }, "chk "},
      {[&] { options[1].setValue(true); }, "opt(1) "},
      {[&] { options[2].setValue(true); }, "opt(2) "},
      {[&] { options[2].setValue(false); }, ""},
      {[&] { combo.setListIndex(1); }, "cbo "},
      {[&] { combo.setListIndex(1); }, ""},
      {[&] { combo.setText("typed"); }, ""},
      {[&] { combo.setListIndex(1); }, "cbo "},
      {[&] { combo.acceptChoice(1); }, "cbo "},
      {[&] { tabs.setTab(1); }, "SSTab1 "},
  };
  expectChanges(clicks, changes);
}

TEST_F(Controls, OptionsExcludeEachOtherWithinTheirGroup) {
  Frame group(form, "fraDates");
  auto sent = controlArray<OptionButton, 2>(form, "optSent");
  auto dates = controlArray<OptionButton>(form, "optDate", std::array{3, 5});
  for (auto& option : dates) option.setContainer(group);
  EXPECT_EQ(chosenOption(dates), -1);
  sent[0].setValue(true);
  dates[1].setValue(true);
  sent[1].setValue(true);
  EXPECT_EQ(chosenOption(sent), 1);
  EXPECT_EQ(chosenOption(dates), 1);
  EXPECT_EQ(form.find("OPTDATE(5)"), &dates[1]);
}

TEST_F(Controls, EntriesKeepTheirNumbersAndTheFieldFollowsTheChoice) {
  ComboBox combo;
  int changes = 0;
  combo.onChange = [&] { ++changes; };
  combo.addItem("a@firm.test");
  combo.addItem("b@firm.test", 8);
  combo.setItemData(0, 4);
  EXPECT_EQ(combo.newIndex(), 1);
  combo.setListIndex(1);
  EXPECT_EQ(combo.text(), "b@firm.test");
  EXPECT_EQ(changes, 0) << "a choice is a click, not a change";
  combo.setText("c@firm.test");
  EXPECT_EQ(combo.listIndex(), -1);
  EXPECT_EQ(changes, 1);
  ComboBox copy;
  copy.setText("left over");
  copy.copyEntries(combo);
  EXPECT_EQ(copy.entries(), combo.entries());
  EXPECT_EQ(copy.text(), "");
  EXPECT_EQ(copy.itemData(1), 8);
  copy.setEditable(false);
  EXPECT_FALSE(copy.acceptText("typed"));
  EXPECT_FALSE(copy.acceptChoice(2));
  combo.clear();
  EXPECT_EQ(combo.newIndex(), -1);
  EXPECT_EQ(combo.text() + std::to_string(combo.listCount()), "0");
}

TEST_F(Controls, RendererIsToldWhatChanged) {
  TextBox field(form, "txt");
  ComboBox combo(form, "cbo");
  TreeView tree(form, "tvw");
  std::string told;
  for (Control* control : form.controls()) {
    control->onRender = [&](Aspect aspect) { told += "svlf"[static_cast<int>(aspect)]; };
    control->onRowChange = [&](const RowChange& change) {
      told += "+-~"[static_cast<int>(change.kind)] + std::to_string(change.row);
      EXPECT_EQ(change.count, 1);
    };
  }
  const std::vector<Change> changes = {
      {[&] { field.setText("x"); }, "v"},
      {[&] { field.setText("x"); }, ""},
      {[&] { field.setEnabled(false); }, "s"},
      {[&] { field.setBackColor(0x0000FF); }, "s"},
      {[&] { combo.addItem("a"), combo.addItem("b"), combo.addItem("c"); }, "+0+1+2"},
      {[&] { combo.setListIndex(1); }, "v"},
      {[&] { combo.setFocus(); }, "f"},
      {[&] { combo.setList(2, "d"); }, "~2"},
      {[&] { combo.removeItem(0); }, "-0"},
      {[&] { tree.addNode(tree.addNode(-1, "k", "root"), "l", "leaf"); }, "+0+1"},
      {[&] { tree.clear(), combo.refresh(); }, "ll"},
  };
  expectChanges(told, changes);
  EXPECT_EQ(combo.list(0) + combo.list(1) + combo.text(), "bdb");
  EXPECT_EQ(combo.listIndex(), 0) << "the entry that was chosen has moved up";
  combo.removeItem(0);
  EXPECT_EQ(combo.text() + std::to_string(combo.listIndex()), "-1");
  EXPECT_THROW(combo.removeItem(1), std::out_of_range);
}

TEST_F(Controls, AContainerDrawsWhatIsInsideIt) {
  TabControl tabs(form, "SSTab1");
  Frame frame(form, "fra");
  TextBox inside(form, "txt");
  tabs.setPages({"one", "two"});
  frame.setContainer(tabs, 1);
  inside.setContainer(frame);
  std::string drawn;
  inside.onRender = [&](Aspect) { drawn += inside.isReachable() ? '+' : '-'; };
  tabs.setTab(1);
  frame.setEnabled(false);
  frame.setEnabled(true);
  tabs.setVisible(false);
  frame.setFocus();
  EXPECT_EQ(drawn, "+-+-");
  inside.setContainer(tabs, 1);
  frame.setEnabled(false);
  EXPECT_EQ(drawn, "+-+--") << "it has left the frame";
}

}  // namespace
}  // namespace autonotify::test
