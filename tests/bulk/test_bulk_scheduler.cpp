#include "BulkOffice.h"
#include "support/FailingDrawing.h"
#include "support/error_number.h"
#include "support/window_script.h"

namespace autonotify::test {
namespace {

void pressCancel(WindowInUse& window) {
  window.click("cmdCancel");
}
constexpr const char* file = "../bulk/bulk_cases.txt";

std::string at(const char* control, std::size_t index) {
  return std::string(control) + "(" + std::to_string(index) + ")";
}

class BulkTest : public HostTest {
 protected:
  BulkTest() { fillOffice(*this); }
  void begin(enumAutoNotifyClientType type, Id id = 1) { panel.Initialize(type, id, id); }
  bool show(HeadlessPerson::Script script, bool skip = false) {
    return test::show(*this, panel, std::move(script), skip);
  }
  /// Task, channel and recipients of each notification, and the tasks that are armed.
  std::string armed() {
    return dump(
               "SELECT ScheduleIDNum, NotificationType, Field1, Field2, Field3, Field4 FROM "
               "ClientNotification ORDER BY ClientNotificationID") +
           dump("SELECT ScheduleID, notifyType FROM Schedule WHERE notifyType<>0");
  }
  /// The pass runs, until the person cancels.
  void expectPass(HeadlessPerson::ProgressScript cancels = {}) {
    screen.expectProgress("Creating automatic notifications, Please wait ...", std::move(cancels));
  }
  void runPass(HeadlessPerson::ProgressScript cancels = {}) {
    expectPass(std::move(cancels));
    show(pressFinish);
  }
  void execute(const std::string& sql) { plainDatabase->connection().exec(sql); }
  std::string stored() { return dump("SELECT * FROM ClientScheduleAutoNotifications"); }

  /// What the editor of templates opens on.
  std::string edited(WindowInUse& window) {
    std::string name;
    screen.expectWindow("frmTaskAutoNotification", [&](WindowInUse& editor) {
      name = editor.read("lblTaskName");
      editor.click("cmdClose");
    });
    window.click("cmdEditNotificationTemplate");
    return name;
  }

  Bulk panel;
};

TEST_F(BulkTest, RowsNameChooseAndShowKindsInThreeOrders) {
  // The kinds that a row of the window names, chooses and shows.
  for (std::size_t row = 0; const auto& kinds : rowsOf(file, "kinds of rows", 3)) {
    const Id chosen = std::stoi(kinds[1]), tickedFor = std::stoi(kinds[2]);
    begin(enumAutoNotifyCompany);
    panel.choice.families[static_cast<std::size_t>(tickedFor - 101)] = true;
    show([&](WindowInUse& window) {
      EXPECT_EQ(window.read(at("lblText", row)),
                "Schedule all K" + kinds[0] + " Auto Notifications for 2026");
      for (std::size_t i = 0; i < 14; ++i)
        EXPECT_EQ(window.read(at("chkAutoNotify", i)), i == row ? "yes" : "no");
      window.click("cmdSelectAllAuto");
      EXPECT_EQ(window.read("cmdSelectAllAuto"), "Unselect All Auto");
      EXPECT_EQ(std::ranges::count(panel.choice.families, true), tickedFor == chosen ? 14 : 13);
      window.click("cmdSelectAllAuto");
      EXPECT_EQ(window.read("cmdSelectAllAuto"), "Select All");
      EXPECT_EQ(std::ranges::count(panel.choice.families, true), 0);
      window.click(at("chkAutoNotify", row));
      EXPECT_EQ(edited(window), "Kind " + std::to_string(chosen));
      pressCancel(window);
    });
    EXPECT_TRUE(panel.choice.families[static_cast<std::size_t>(chosen - 101)]);
    ++row;
  }
  panel.choice.families.fill(true);
  for (const auto& kind : rowsOf(file, "kinds as their templates open", 1)) {
    show([&](WindowInUse& window) {
      EXPECT_EQ(edited(window), "Kind " + kind[0]);
      pressCancel(window);
    });
    panel.choice.families[static_cast<std::size_t>(std::stoi(kind[0]) - 101)] = false;
  }
}

TEST_F(BulkTest, FieldsHoldWhoIsLikeliestAndBelongToTheirChannels) {
  constexpr const char* fields[] = {"cboTo",           "cboCc",          "cboBcc",
                                    "cboFaxRecipient", "cboToFaxNumber", "cboPhoneName",
                                    "cboPhoneNumber"};
  constexpr const char* channels[] = {"0", "0", "0", "1", "1", "3", "3"};
  // What has changed of the contacts, for whom, whom the window names, and what the fields hold.
  for (const auto& row : rowsOf(file, "likeliest recipients", 4)) {
    const bool isContact = row[1] == "contact";
    if (!row[0].empty()) execute("UPDATE Contacts SET " + row[0]);
    plainClients.setClientLookupBatch(true), plainClients.setClientLookupBatch(false);
    begin(isContact ? enumAutoNotifyContact : enumAutoNotifyCompany);
    const bool skipped = show([&](WindowInUse& window) {
      EXPECT_EQ(window.read("Label2"), std::string("This wizard will automatically schedule the "
                                                   "automatic notifications") +
                                           row[2] + ".");
      EXPECT_EQ(window.sees("cmdNext"), !isContact);
      EXPECT_EQ(window.sees("cmdBack"), !isContact);
      EXPECT_EQ(window.sees("Frame4"), !isContact);
      if (!isContact) window.click("cmdNext");
      EXPECT_FALSE(window.canUse("cmdNext"));
      std::string held;
      for (const char* field : fields) held += window.read(field) + "|";
      EXPECT_EQ(held, row[3]);
      for (const std::size_t channel : {0u, 1u, 2u, 3u}) {
        EXPECT_EQ(window.read(at("chkNotifyType", channel)), channel == 0 ? "yes" : "no");
        window.click(at("chkNotifyType", channel));
        EXPECT_EQ(panel.choice.channels[channel], channel != 0);
      }
      for (std::size_t i = 0; i < 7; ++i)
        EXPECT_EQ(window.canUse(fields[i]), *channels[i] != '0') << fields[i];
      pressCancel(window);
    });
    EXPECT_EQ(skipped, isContact);
    EXPECT_TRUE(panel.cancelFlag);
  }
}

TEST_F(BulkTest, YearsStandInAFieldThatCannotBeDrawn) {
  for (const int choice : {error_choice::next, error_choice::quit})
    for (int drawing = 1; drawing <= 7; ++drawing) {
      const FailingDrawing failing(panel.cboYear, drawing);
      errors.answer({choice});
      begin(enumAutoNotifyCompany);
      show([&](WindowInUse& window) {
        EXPECT_EQ(panel.cboYear.listCount(), 5) << drawing;
        EXPECT_EQ(window.read("cboYear"), "2026") << drawing;
        EXPECT_EQ(failing.isDrawn, choice == error_choice::quit || drawing < 7) << drawing;
        pressCancel(window);
      });
      EXPECT_EQ(errors.answersLeft(), 0u) << drawing;
    }
  show([&](WindowInUse& window) {
    window.click("cmdNext");
    window.type("cboYear", "1899");
    hear("4", "You must enter a valid year for the source year.  Please try again");
    errors.answer({error_choice::quit});
    const FailingDrawing failing(panel.cboYear, 1);
    EXPECT_FALSE(window.click("cmdFinish"));
    EXPECT_EQ(window.read("cboYear"), "2026");
    pressCancel(window);
  });
}

/// Scripts of bulk_cases.txt. What begins with "show" opens the window until "done", and tells
/// whether the first page was left out and whether the person has cancelled.
class BulkScripts : public BulkTest, public testing::WithParamInterface<std::vector<std::string>> {
 protected:
  std::string outcome(WindowInUse* window, const ToldAct& told) {
    const std::string &about = told[1], &text = told[2];
    if (told[0] == "hear") return hear(about, text), "";
    if (told[0] == "edit") return edited(*window);
    if (told[0] == "settle") return errors.answer({std::stoi(about)}), "";
    if (told[0] == "recorded") return toText(errors.recorded().back().number);
    if (told[0] == "no year") return plainLocale.settings().year = 0, "";
    if (told[0] == "fail") return calls.reset(), calls.failAt(std::stoi(about)), "";
    return outcomeIn(*window, told);
  }
  void expectOutcome(WindowInUse* window, const ToldAct& told) {
    EXPECT_EQ(outcome(window, told), told[3]) << told[0] + " " + told[1] + " " + told[2];
  }
};

TEST_P(BulkScripts, GiveWhatTheyTell) {
  const std::vector<ToldAct> script = rowsOf(file, GetParam()[0], 4);
  for (auto told = script.begin(); told != script.end(); ++told) {
    if (told->at(0) != "show") {
      expectOutcome(nullptr, *told);
      continue;
    }
    const bool skips = told->at(2) == "from the second page";
    begin(told->at(1) == "contact" ? enumAutoNotifyContact : enumAutoNotifyCompany);
    EXPECT_FALSE(panel.cancelFlag);
    const auto act = [&](WindowInUse& window) {
      while ((++told)->at(0) != "done") expectOutcome(&window, *told);
    };
    const bool skipped = show(act, skips);
    EXPECT_EQ(skipped ? "skipped" : "", told->at(1));
    EXPECT_EQ(panel.cancelFlag ? "cancelled" : "", told->at(3));
  }
}

INSTANTIATE_TEST_SUITE_P(Bulk, BulkScripts, testing::ValuesIn(rowsOf(file, "scripts", 1)));

/// The pass, with every channel and the kinds 101, 102 and 113.
void chooseAll(Bulk& panel) {
  panel.choice.channels.fill(true);
  for (const std::size_t family : {0u, 1u, 12u}) panel.choice.families[family] = true;
}

TEST_F(BulkTest, PassArmsTheOpenTasksOfTheYearOnce) {
  const std::string ofTask =
      "|1|cara@home|NULL|NULL|Your Return is due on Tuesday, June 30 2026|\n";
  begin(enumAutoNotifyCompany);
  chooseAll(panel);
  runPass();
  const std::string once = armed();
  EXPECT_EQ(notificationCount(), 12);
  EXPECT_EQ(once.substr(once.find("\n1|15") + 1), "1|15|\n2|15|\n3|15|\n");
  EXPECT_NE(once.find("1" + ofTask), once.npos) << once;
  EXPECT_NE(once.find("2|2|Birch Ltd. c/o Cara Holm|||555-0101|"), once.npos) << once;
  EXPECT_NE(once.find("3|8|Cara Holm|555-0102|"), once.npos) << once;
  expectPass();
  show([](WindowInUse& window) {
    window.click("cmdNext");
    for (const char* field : {"cboTo", "cboCc", "cboBcc"}) window.type(field, field);
    window.click("cmdFinish");
  });
  EXPECT_EQ(armed(), replaceAll(once, "cara@home|NULL|NULL", "cboTo|cboCc|cboBcc"));
  begin(enumAutoNotifyContact);
  chooseAll(panel);
  runPass();
  EXPECT_EQ(notificationCount(), 16);
  EXPECT_EQ(dump("SELECT notifyType FROM Schedule ORDER BY ScheduleID"),
            "15|\n15|\n15|\n15|\n0|\n0|\n0|\n");
}

TEST_F(BulkTest, PassTakesTheKindsInItsOrderAndTellsOfEachTask) {
  execute("DELETE FROM Schedule");
  std::string counted, armed, seen;
  for (const Id kind : {101, 102, 103, 110, 104, 105, 106, 107, 108, 109, 111, 113, 114, 112}) {
    taskOf(*this, kind, {{"ClientNum", 2}});
    counted += toText(kind) + "|";
    armed += toText(kind) + "|pump|pump|put_value " + toText(rowCount("Schedule")) + "|pump|pump|";
  }
  begin(enumAutoNotifyCompany);
  panel.choice.families.fill(true);
  calls.record(true);
  runPass();
  for (const std::string& call : calls.log()) {
    if (const auto kind = call.find("totalNum = "); kind != call.npos)
      seen += call.substr(kind + 11, 3) + "|";
    else if (call == "pumpMessages")
      seen += "pump|";
    else if (call.starts_with("put_") || call == "repaint" || call == "show" || call == "close")
      seen += call + "|";
  }
  EXPECT_EQ(seen,
            "repaint|pump|pump|put_text Creating automatic notifications, Please wait ...|"
            "put_owner|" +
                counted + "put_maximum 14|put_value 0|show|" + armed + "close|");
}

TEST_F(BulkTest, CancelOfTheHostLeavesWholeTasksBehind) {
  errors.answer({error_choice::leave});
  begin(enumAutoNotifyCompany);
  chooseAll(panel);
  runPass([](int value) { return value == 2; });
  EXPECT_EQ(notificationCount(), 8);
  EXPECT_EQ(dump("SELECT notifyType FROM Schedule WHERE ClientNum=2 ORDER BY ScheduleID"),
            "15|\n15|\n0|\n0|\n0|\n");
}

TEST_F(BulkTest, ChoiceIsKeptForTheClientAndNobodyElse) {
  const Id unlisted = addRow("Companies", {{"CompanyName", "Elm"}});
  const std::pair<enumAutoNotifyClientType, Id> cases[] = {{enumAutoNotifyCategory, 1},
                                                           {enumAutoNotifyCompany, noId},
                                                           {enumAutoNotifyContact, 5},
                                                           {enumAutoNotifyCompany, unlisted}};
  for (const auto& [type, id] : cases) {
    begin(type, id);
    chooseAll(panel);
    runPass();
    EXPECT_THAT(screen.progressSeen(), testing::EndsWith(" of 0: 0 closed"));
    calls.reset();
    calls.record(true);
    for (int i = 0; i < 2; ++i) panel.saveNotificationsTypes();
  }
  const std::string columns = "15|0|15|15|0|0|0|0|0|0|0|0|0|0|\n";
  EXPECT_EQ(stored(), "1|-1|5|" + columns + "2|2|-1|" + columns);
  EXPECT_LT(callNumber("saveNewRecord", 1), callNumber("closeRecordset", 1));
  EXPECT_EQ(logged("openRecordset").size(), 3u) << "again once it is added, and to keep it";
  begin(enumAutoNotifyContact, 5);
  panel.choice[TaskFamily::Custom] = true;
  panel.saveNotificationsTypes();
  EXPECT_EQ(stored(), "1|-1|5|0|0|0|0|0|0|0|0|0|0|0|0|0|1|\n2|2|-1|" + columns);
}

}  // namespace
}  // namespace autonotify::test
