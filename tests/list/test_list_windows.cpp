#include "LoadedList.h"
#include "list/frmAutoNotifyList.h"
#include "list/frmSendAutoNotifyCustomFields.h"
#include "list/frmSendAutoNotifyListOptions.h"
#include "settings/modUserSettings.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

constexpr Id user = 7;
const std::string due =
    "All notifications not sent for the client notification dates on and before Wednesday, April "
    "15, 2026";

class ListWindows : public HostTest {
 protected:
  ListWindows() { addRow("AccountantEmployeeInfo", {{"ContactID", user}, {"DisplayName", "Jo"}}); }

  /// Opens the list and lets the person act in it; gives the calls of the operation.
  std::vector<std::string> useList(const std::string& operation, HeadlessPerson::Script script) {
    screen.expectWindow("frmAutoNotifyList", std::move(script));
    return callsOf(operation, [] {
      frmAutoNotifyList list;
      list.Initialize();
      EXPECT_FALSE(list.isLoaded());
    });
  }
  std::string settings() {
    return dump("SELECT ShowMVPreview, ShowEmailPreview FROM UserGeneralSettings");
  }
};

TEST_F(ListWindows, OpenOnWhatIsDueAndCloseAtOnce) {
  const char* const names[] = {"", " and where the employee assigned is Jo",
                               " and where the managing accountant is Jo",
                               " and where the supervising partner is Jo"};
  for (const bool byCloseBox : {false, true}) {
    const auto batches = useList("setClientLookupBatch", [&](WindowInUse& window) {
      EXPECT_EQ(window.read("lblTitle"), "Client Auto Notifications List (0 entries)");
      EXPECT_EQ(window.read("lblDisplay"), due);
      EXPECT_EQ(screen.pointer(), Pointer::standard);
      for (const int preset : {3, 2, 1, 0}) {
        window.click("imgTopBarButton(" + std::to_string(preset + 3) + ")");
        EXPECT_EQ(window.read("lblDisplay"), due + names[preset]);
      }
      byCloseBox ? window.closeBox() : window.click("cmdClose");
    });
    EXPECT_EQ(batches.front() + batches.back(), "TrueFalse");
  }
}

TEST_F(ListWindows, AreGoneWhenTheyCloseBeforeTheFirstLoad) {
  for (const int pump : {3, 6}) {
    screen.duringPump(pump, [] { EXPECT_TRUE(findForm("frmAutoNotifyList")->unload()); });
    screen.expectWindow("frmAutoNotifyList", [](WindowInUse&) { FAIL() << "it is open"; });
    frmAutoNotifyList list;
    EXPECT_THAT(statementsOf([&] { list.Initialize(); }),
                testing::Each(testing::Not(testing::HasSubstr("FROM ClientNotification"))));
    EXPECT_EQ(list.lblDisplay.caption(), "") << "nothing is searched for";
  }
}

TEST_F(ListWindows, ShowHowFarALoadIsInPlaceOfTheGrid) {
  useList("", [&](WindowInUse& window) {
    auto& list = dynamic_cast<frmAutoNotifyList&>(window.form());
    int drawn = 0;
    list.setupProgressBar(5000);
    EXPECT_TRUE(window.sees("cmdCancelPopulatingList") && !window.sees("AutoNotifyFlexGrid"));
    list.pgbTasksProgress.onRender = [&](Aspect) { ++drawn; };
    const int pumps = screen.pumps();
    for (int row = 1; row <= 5000; ++row) list.incrementProgressBar(row);
    EXPECT_EQ(list.pgbTasksProgress.value(), 5000);
    EXPECT_EQ(drawn, 1000) << "once for each thousandth";
    EXPECT_EQ(screen.pumps() - pumps, 5000);
    list.pgbTasksProgress.onRender = nullptr;
    list.hideProgressBar();
    EXPECT_TRUE(!window.sees("cmdCancelPopulatingList") && window.sees("AutoNotifyFlexGrid"));
    window.click("cmdClose");
  });
}

TEST_F(ListWindows, PopUpTheirMenuAtTheRightButton) {
  useList("", [&](WindowInUse& window) {
    auto& list = dynamic_cast<frmAutoNotifyList&>(window.form());
    for (const bool isWrapped : {true, false}) {
      screen.chooseFromMenu("mnuTasksWordWrap");
      list.AutoNotifyFlexGrid.onMouseUp(2);
      EXPECT_EQ(list.mnuTasksWordWrap.checked(), isWrapped);
      list.AutoNotifyFlexGrid.onMouseUp(1);
    }
    window.click("cmdClose");
  });
}

TEST_F(ListWindows, ChooserHidesColumnsAndBringsThemBack) {
  for (const bool isShown : {true, false, true}) {
    LoadedList window(*this);
    window.grid.put_ColWidth(list_column::name, 0);
    screen.expectWindow("frmAutoNotifyChangeListColumns", [](WindowInUse& chooser) {
      for (const char* act : {"chkField(8)", "chkField(13)", "cmdOk"}) chooser.click(act);
    });
    EXPECT_TRUE(window.list->showChangeColumns());
    const LoadedList again(*this);
    for (const Grid* grid : {&std::as_const(window.grid), &again.grid}) {
      EXPECT_NE(grid->showsColumn(list_column::clientId), isShown);
      EXPECT_EQ(grid->showsColumn(list_column::created), isShown);
      EXPECT_TRUE(grid->showsColumn(list_column::name)) << "a ticked one without a width";
    }
  }
}

/// Acts in the options of sending, and what is stored of the preview and the email preview then.
TEST_F(ListWindows, StoreTheOptionsOfSending) {
  const std::pair<std::vector<const char*>, const char*> cases[] = {
      {{"chkMorvanePreview", "optEmail(0)", "cmdCancel"}, "0|1|\n"},
      {{"chkMorvanePreview", "optEmail(0)", "cmdOK"}, "1|0|\n"},
      {{"chkMorvanePreview", "cmdConfigureEmail", "cmdApply", "cmdCancel"}, "0|0|\n"},
      {{"optEmail(1)", "cmdApply", "optEmail(0)", "cmdCancel"}, "0|1|\n"}};
  getShowMVPreview(user);
  for (const auto& [acts, stored] : cases) {
    screen.expectWindow("frmSendAutoNotifyListOptions", [&acts = acts](WindowInUse& window) {
      for (const char* act : acts) window.click(act);
    });
    frmSendAutoNotifyListOptions options;
    options.Initialize();
    options.unload();
    EXPECT_EQ(settings(), stored);
  }
}

std::string namesOf(TestHost& host) {
  return host.dump("SELECT CustomName1, RemittanceLabel2, DocketCustomName5 FROM CustomFields");
}

std::string nameFields(TestHost& host, const std::vector<const char*>& acts) {
  host.screen.expectWindow("frmSendAutoNotifyCustomFields", [&](WindowInUse& window) {
    EXPECT_EQ(window.read("lblField(11)"), "Task Field 2");
    window.type("txtField(11)", "Reviewer");
    window.type("txtField(24)", "Rate");
    for (const char* act : acts) window.click(act);
    if (window.form().isVisible()) window.click("cmdCancel");
  });
  frmSendAutoNotifyCustomFields names;
  names.Initialize();
  names.unload();
  return namesOf(host);
}

TEST_F(ListWindows, StoreTheNamesOfCustomFields) {
  EXPECT_EQ(nameFields(*this, {"cmdCancel"}), "NULL|NULL|NULL|\n") << "the first row is added";
  const auto written = columnsWrittenBy([&] { nameFields(*this, {"cmdApply", "cmdOK"}); });
  EXPECT_THAT(written, testing::ElementsAre("RemittanceLabel2=Reviewer", "DocketCustomName5=Rate"));
  EXPECT_THAT(columnsWrittenBy([&] { nameFields(*this, {"cmdOK"}); }), testing::IsEmpty());
  EXPECT_EQ(namesOf(*this), "NULL|Reviewer|Rate|\n");
}

TEST(ListWindowFaults, LeaveNothingHalfDone) {
  const WalkedOperation names{"CustomFields",
                              [](TestHost& host) {
                                return nameFields(host, {"cmdApply", "cmdOK"});
                              },
                              "NULL|Reviewer|Rate|\n"};
  walkFaults(names, {[](TableRows rows) { rows.addRow("CustomFields", {}); }, namesOf});
}

}  // namespace
}  // namespace autonotify::test
