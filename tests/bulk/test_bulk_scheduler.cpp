#include "BulkOffice.h"
#include "platform/text.h"
#include "support/error_number.h"

namespace autonotify::test {
namespace {

void pressCancel(WindowInUse& window) {
  window.click("cmdCancel");
}
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
  constexpr Id orders[14][3] = {{114, 101, 101}, {101, 102, 102}, {102, 103, 103}, {112, 110, 110},
                                {103, 104, 106}, {110, 105, 107}, {104, 106, 104}, {105, 107, 105},
                                {106, 108, 108}, {107, 109, 109}, {108, 111, 111}, {109, 113, 113},
                                {111, 114, 114}, {113, 112, 112}};
  constexpr Id templates[] = {113, 114, 101, 102, 112, 103, 110, 106, 107, 104, 105, 108, 109, 111};
  for (std::size_t row = 0; row < 14; ++row) {
    const Id labelled = orders[row][0], chosen = orders[row][1], tickedFor = orders[row][2];
    begin(enumAutoNotifyCompany);
    panel.choice.families[static_cast<std::size_t>(tickedFor - 101)] = true;
    show([&](WindowInUse& window) {
      EXPECT_EQ(window.read(at("lblText", row)),
                "Schedule all K" + std::to_string(labelled) + " Auto Notifications for 2026");
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
  }
  panel.choice.families.fill(true);
  for (const Id totalNum : templates) {
    show([&](WindowInUse& window) {
      EXPECT_EQ(edited(window), "Kind " + std::to_string(totalNum));
      pressCancel(window);
    });
    panel.choice.families[static_cast<std::size_t>(totalNum - 101)] = false;
  }
}

TEST_F(BulkTest, FieldsHoldWhoIsLikeliestAndBelongToTheirChannels) {
  constexpr const char* fields[] = {"cboTo",           "cboCc",          "cboBcc",
                                    "cboFaxRecipient", "cboToFaxNumber", "cboPhoneName",
                                    "cboPhoneNumber"};
  constexpr const char* channels[] = {"0", "0", "0", "1", "1", "3", "3"};
  const std::tuple<const char*, bool, const char*, const char*> cases[] = {
      {"", false, " for Birch Ltd.",
       "cara@home|||Birch Ltd. c/o Cara Holm|555-0101|Cara Holm|555-0102|"},
      {"BusinessEmail='cara@birch', BusinessPhone_Fax='555-0121', BusinessPhone_Main='555-0122'",
       false, " for Birch Ltd.",
       "cara@birch|||Birch Ltd. c/o Cara Holm|555-0121|Cara Holm|555-0122|"},
      {"", true, " for Cara Holm", "cara@birch|||Cara Holm|555-0121|Cara Holm|555-0122|"},
      {"BusinessEmail='', PersonalEmail='', DisplayName='', BusinessPhone_Fax=''", false,
       " for Birch Ltd.", "office@birch|||Birch Ltd.|555-0101||555-0122|"},
      {"BusinessPhone_Main=''", true, "", "|||||||"}};
  for (const auto& [change, isContact, name, texts] : cases) {
    if (*change) plainDatabase->connection().exec(std::string("UPDATE Contacts SET ") + change);
    plainClients.setClientLookupBatch(true), plainClients.setClientLookupBatch(false);
    begin(isContact ? enumAutoNotifyContact : enumAutoNotifyCompany);
    const bool skipped = show([&, isContact = isContact, name = name, texts = texts](auto& window) {
      EXPECT_EQ(window.read("Label2"), std::string("This wizard will automatically schedule the "
                                                   "automatic notifications") +
                                           name + ".");
      EXPECT_EQ(window.sees("cmdNext"), !isContact);
      EXPECT_EQ(window.sees("cmdBack"), !isContact);
      EXPECT_EQ(window.sees("Frame4"), !isContact);
      if (!isContact) window.click("cmdNext");
      std::string held;
      for (const char* field : fields) held += window.read(field) + "|";
      EXPECT_EQ(held, texts);
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

TEST_F(BulkTest, StepsLeadOneWayAndTheCloseBoxCancels) {
  begin(enumAutoNotifyCompany);
  EXPECT_TRUE(show(
      [&](WindowInUse& window) {
        errors.answer({error_choice::next, error_choice::leave});
        window.click("cmdBack");
        window.click("cmdBack");
        EXPECT_TRUE(window.sees("Frame1"));
        window.closeBox();
      },
      true));
  for (const auto& error : errors.recorded())
    EXPECT_EQ(error.number, error_number::subscriptOutOfRange);
  EXPECT_TRUE(panel.cancelFlag);
  begin(enumAutoNotifyCompany);
  EXPECT_FALSE(panel.cancelFlag);
  show([&](WindowInUse& window) {
    EXPECT_FALSE(window.canUse("cmdBack") || window.canUse("cmdFinish"));
    window.click("cmdChangeYear");
    EXPECT_FALSE(window.sees("Frame4") || window.sees("Frame1") || window.canUse("cmdNext") ||
                 window.canUse("cmdFinish"));
    EXPECT_TRUE(window.canUse("cmdBack"));
    pressCancel(window);
  });
}

TEST_F(BulkTest, AYearThatIsNoneGivesWayToThePresentOne) {
  begin(enumAutoNotifyCompany);
  const auto captionYear = [&] { return panel.lblText[0].caption().substr(41); };
  show([&](WindowInUse& window) {
    window.click("cmdNext");
    EXPECT_THAT(window.entries("cboYear"),
                testing::ElementsAre("2023", "2024", "2025", "2026", "2027"));
    EXPECT_EQ(window.read("cboYear"), "2026");
    window.choose("cboYear", "2027");
    EXPECT_EQ(captionYear(), "2027");
    for (const char* year : {"1899", "99999", "", "2o"}) {
      screen.expectMessage("You must enter a valid year for the source year.  Please try again",
                           message_style::valueRefused);
      window.type("cboYear", year);
      EXPECT_FALSE(window.click("cmdFinish")) << year;
      EXPECT_EQ(window.focus(), "cboYear");
      EXPECT_EQ(window.read("cboYear") + captionYear(), "20262026");
    }
    window.type("cboYear", "20x31");
    EXPECT_EQ(edited(window), "Kind 101");
    EXPECT_EQ(captionYear(), "2031");
    pressCancel(window);
  });
}

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
  calls.record(true);
  show(pressFinish);
  EXPECT_THAT(logged("put_value"), testing::ElementsAre("0", "1", "2", "3"));
  EXPECT_THAT(logged("put_maximum"), testing::ElementsAre("3"));
  const auto pump = calls.log().begin() + callNumber("put_value 2", 1);
  EXPECT_EQ(pump[0] + pump[1], "pumpMessagespumpMessages");
  const std::string once = armed();
  EXPECT_EQ(notificationCount(), 12);
  EXPECT_EQ(once.substr(once.find("\n1|15") + 1), "1|15|\n2|15|\n3|15|\n");
  EXPECT_NE(once.find("1" + ofTask), once.npos) << once;
  EXPECT_NE(once.find("2|2|Birch Ltd. c/o Cara Holm|||555-0101|"), once.npos) << once;
  EXPECT_NE(once.find("3|8|Cara Holm|555-0102|"), once.npos) << once;
  show([](WindowInUse& window) {
    window.click("cmdNext");
    window.type("cboTo", "dan@birch");
    window.click("cmdFinish");
  });
  EXPECT_EQ(armed(), replaceAll(once, "cara@home", "dan@birch"));
  begin(enumAutoNotifyContact);
  chooseAll(panel);
  show(pressFinish);
  EXPECT_EQ(notificationCount(), 16);
  EXPECT_EQ(dump("SELECT notifyType FROM Schedule ORDER BY ScheduleID"),
            "15|\n15|\n15|\n15|\n0|\n0|\n0|\n");
}

TEST_F(BulkTest, CancelOfTheHostLeavesWholeTasksBehind) {
  progress.cancelAt = 2;
  errors.answer({error_choice::leave});
  begin(enumAutoNotifyCompany);
  chooseAll(panel);
  show(pressFinish);
  EXPECT_EQ(notificationCount(), 8);
  EXPECT_EQ(dump("SELECT notifyType FROM Schedule WHERE ClientNum=2 ORDER BY ScheduleID"),
            "15|\n15|\n0|\n0|\n0|\n");
}

TEST_F(BulkTest, ChoiceIsKeptForTheClientAndNobodyElse) {
  const Id unlisted = addRow("Companies", {{"CompanyName", "Elm"}});
  const std::pair<enumAutoNotifyClientType, Id> cases[] = {{enumAutoNotifyCompany, unlisted},
                                                           {enumAutoNotifyContact, 5},
                                                           {enumAutoNotifyCompany, noId},
                                                           {enumAutoNotifyCategory, 1}};
  for (const auto& [type, id] : cases) {
    begin(type, id);
    chooseAll(panel);
    calls.reset();
    calls.record(true);
    show(pressFinish);
    EXPECT_THAT(logged("put_maximum"), testing::ElementsAre("0"));
    EXPECT_THAT(logged("put_value"), testing::ElementsAre("0"));
    for (int i = 0; i < 2; ++i) panel.saveNotificationsTypes();
  }
  const std::string columns = "15|0|15|15|0|0|0|0|0|0|0|0|0|0|\n";
  EXPECT_EQ(stored(), "1|2|-1|" + columns + "2|-1|5|" + columns);
  begin(enumAutoNotifyContact, 5);
  panel.choice[TaskFamily::Custom] = true;
  panel.saveNotificationsTypes();
  EXPECT_EQ(stored(), "1|2|-1|" + columns + "2|-1|5|0|0|0|0|0|0|0|0|0|0|0|0|0|1|\n");
}

}  // namespace
}  // namespace autonotify::test
