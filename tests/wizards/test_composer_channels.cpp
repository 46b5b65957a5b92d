#include "ComposerTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

/// What the channel of the test was given to store.
std::vector<std::string>& stored() {
  static std::vector<std::string> edits;
  return edits;
}

/// A channel that differs from the email's in all that a channel may differ in.
constexpr ComposerChannel phoneLike{
    .channel = nt_Phone,
    .formName = "frmTestComposer",
    .caption = "Test",
    .addressCaption = "Address",
    .addsRow = AddsRow::never,
    .confirmationStart = "Someone is to call about the ",
    .confirmationEnd = " on ",
    .asksClientList = false,
    .addressHasDate = false,
    .editForSchedule =
        [](Id id, const FieldTexts& fields, const std::string&) {
          stored().push_back("entry " + std::to_string(id) + " " + fields.at(0) + fields.at(1));
        },
    .editForItem =
        [](std::int32_t kind, Id id, const FieldTexts& fields, const std::string&) {
          stored().push_back(std::to_string(kind) + " " + std::to_string(id) + " " + fields.at(0) +
                             fields.at(1));
        },
    .finishAtOnce = "Call completed",
    .cancelAtOnce = "Call again",
};

class TestComposer : public NotificationComposer {
 public:
  explicit TestComposer(const ComposerChannel& channel = phoneLike)
      : NotificationComposer(channel) {
    bindFields({&txtPerson, &cboNumber});
  }
  void initializeBlankSend(Id row) {
    procedure(tag("InitializeBlankSend"), [&](Step& step) {
      open(ComposerMode::blankSend, remittanceNotification, Appointments);
      takeRow(row);
      fillAndShow(step);
    });
  }

  TextBox txtPerson{*this, "txtPerson"};
  ComboBox cboNumber{*this, "cboNumber"};
  CheckBox chkUseHeader{*this, "chkUseHeader"};

 protected:
  void finish(Step& step) override {
    saveForLater(step);
    hideAndRepaint(step);
  }
  std::vector<Control*> furtherInputs() override { return {&chkUseHeader}; }
};

class ChannelTest : public ComposerTest {
 protected:
  ChannelTest() { stored().clear(); }
  Result use(Opening opening, HeadlessPerson::Script script) {
    TestComposer composer;
    return ComposerTest::use(composer, opening, std::move(script));
  }
};

void cancel(WindowInUse& window) {
  window.click("cmdCancel");
}

TEST_F(ChannelTest, SaysWhetherARowIsAdded) {
  struct Case {
    AddsRow rule;
    ComposerMode mode;
    bool hasEntry;
    int added;
  };
  using enum ComposerMode;
  for (const Case& each : {Case{AddsRow::never, editAuto, true, 0},
                           {AddsRow::always, newAuto, false, 0},
                           {AddsRow::always, newAuto, true, 1},
                           {AddsRow::unlessNewWithoutSchedule, newAuto, true, 1},
                           {AddsRow::unlessNewWithoutSchedule, newAuto, false, 0}}) {
    ComposerChannel channel = phoneLike;
    channel.addsRow = each.rule;
    const int before = notificationCount();
    // An entry that does not exist has no statement.
    if (each.rule == AddsRow::always && !each.hasEntry) errors.answer({error_choice::leave});
    TestComposer composer(channel);
    screen.expectWindow("frmTestComposer", [](WindowInUse& window) { window.form().hide(); });
    openComposer(composer, {each.mode}, noId, each.hasEntry ? entry : noId);
    EXPECT_EQ(notificationCount() - before, each.added);
  }
}

TEST_F(ChannelTest, NamesItsButtonsWhereTheMessageGoesAtOnce) {
  using enum ComposerMode;
  for (const auto& [mode, finish, cancel] : {std::tuple{notifyNow, "Call completed", "Call again"},
                                             {sendAuto, "Call completed", "Call again"},
                                             {editAuto, "Finish", "Cancel"},
                                             {newAuto, "Finish", "Cancel"}}) {
    const bool isAtOnce = mode == notifyNow || mode == sendAuto;
    row = addRow("ClientNotification", {{"NotificationDate", notifyDate}});
    use({mode}, [&](WindowInUse& window) {
      EXPECT_EQ(window.read("cmdFinish"), finish);
      EXPECT_EQ(window.read("cmdCancel"), cancel);
      EXPECT_EQ(window.sees("txtNotificationField"), !isAtOnce);
      window.click("cmdCancel");
    });
  }
}

TEST_F(ChannelTest, StoresItsOwnFieldsUnderTheKindAsGiven) {
  confirmArming();
  const auto finish = [](WindowInUse& window) {
    window.type("cboNumber", "555-0122");
    window.click("cmdFinish");
  };
  const std::string sentence = "Someone is to call about the task on Thursday, April 23, 2026";
  screen.expectMessage(sentence, message_style::armedConfirmed);
  use({ComposerMode::newAuto}, finish);
  EXPECT_EQ(channelBits(), "8");
  use({ComposerMode::editAuto, appointmentNotification, 46142}, finish);
  use({ComposerMode::editAuto, static_cast<notificationTypes>(3)}, finish);
  const std::string id = std::to_string(row);
  EXPECT_THAT(stored(), ElementsAre("entry " + id + " ann@birch555-0122",
                                    "46142 " + id + " ann@birch555-0122"));
}

TEST_F(ChannelTest, TakesAnyIdAsAClientAndTheAddressOutAgain) {
  const Id unlisted = addRow("Companies", {{"CompanyName", "Cedar Inc."}});
  const Id contact = addRow("Contacts", {{"DisplayName", "Cara Holm"}});
  struct Case {
    Id company, contact;
    const char* name;
  };
  for (const Case& each : {Case{unlisted, contact, "Cedar Inc."},
                           {noId, contact, "Cara Holm"},
                           {0, contact, "Cara Holm"}}) {
    row = addRow("ClientNotification", {{"CompanyIDNum", each.company},
                                        {"ContactIDNum", each.contact},
                                        {"NotificationDate", notifyDate},
                                        {"Memo", memo}});
    use({ComposerMode::editAuto}, [&](WindowInUse& window) {
      window.click("chkAddAddress");
      EXPECT_THAT(window.read("rtbText"), testing::HasSubstr(each.name));
      EXPECT_THAT(window.read("rtbText"), testing::Not(testing::HasSubstr("2026")));
      window.click("chkAddAddress");
      EXPECT_THAT(window.read("rtbText"), testing::Not(testing::HasSubstr(each.name)));
      cancel(window);
    });
  }
}

TEST_F(ChannelTest, LocksItsFurtherInputsWithTheFields) {
  execute("UPDATE ClientNotification SET NotificationSent = 1");
  use({ComposerMode::editAuto}, [](WindowInUse& window) {
    for (const char* name : {"txtPerson", "cboNumber", "chkUseHeader", "rtbText"})
      EXPECT_FALSE(window.canUse(name)) << name;
    cancel(window);
  });
}

TEST_F(ChannelTest, BlankSendLeavesNoRow) {
  TestComposer composer;
  screen.expectWindow("frmTestComposer", [](WindowInUse& window) {
    EXPECT_FALSE(window.sees("txtNotificationField"));
    EXPECT_EQ(window.read("cmdFinish"), "Call completed");
    cancel(window);
  });
  composer.initializeBlankSend(row);
  EXPECT_TRUE(rowExists());
  composer.unload();
  EXPECT_FALSE(rowExists());
}

}  // namespace
}  // namespace autonotify::test
