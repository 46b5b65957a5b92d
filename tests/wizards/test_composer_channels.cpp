#include "ComposerTest.h"
#include "wizards/frmSendNotificationWizardPhone.h"

namespace autonotify::test {
namespace {

/// A channel that differs from the email's in all that a channel may differ in. Its window wears
/// the layout of the email's.
constexpr ComposerChannel phoneLike{
    .channel = nt_Phone,
    .formName = "frmSendNotificationWizardEmail",
    .caption = "Test",
    .addressCaption = "Address",
    .addsRow = AddsRow::never,
    .confirmationStart = "Someone is to call about the ",
    .confirmationEnd = " on ",
    .asksClientList = false,
    .addressHasDate = false,
    .editForSchedule = [](Id, const FieldTexts&, const std::string&) {},
    .editForItem = [](ItemKind, Id, const FieldTexts&, const std::string&) {},
    .finishAtOnce = "Call completed",
    .cancelAtOnce = "Call again",
};

class TestComposer : public NotificationComposer {
 public:
  explicit TestComposer(const ComposerChannel& channel = phoneLike)
      : NotificationComposer(channel) {
    bindFields({&txtSubject, &cboTo});
  }
  void initializeBlankSend(Id row) {
    procedure(tag("InitializeBlankSend"), [&](Step& step) {
      open({ComposerMode::blankSend});
      takeRow(row);
      fillAndShow(step);
    });
  }

  TextBox txtSubject{*this, "txtSubject"};
  ComboBox cboTo{*this, "cboTo"};
  ComboBox cboCc{*this, "cboCc"};

 protected:
  void finish(Step& step) override {
    saveForLater(step);
    hideAndRepaint(step);
  }
  std::vector<Control*> furtherInputs() override { return {&cboCc}; }
};

class ChannelTest : public ComposerTest {
 protected:
  Result useTest(ComposerPurpose purpose, HeadlessPerson::Script script) {
    TestComposer composer;
    return use(composer, purpose, std::move(script));
  }
};

void cancel(WindowInUse& window) {
  window.click("cmdCancel");
}

TEST_F(ChannelTest, SaysWhetherARowIsAdded) {
  using enum ComposerMode;
  ComposerChannel adding = phoneLike;
  adding.addsRow = AddsRow::always;
  struct Case {
    std::unique_ptr<NotificationComposer> composer;
    ComposerMode mode;
    bool hasEntry;
    int added;
    int dialogs = 0;  ///< an entry that does not exist has no statement
  };
  const auto email = [] { return std::make_unique<frmSendNotificationWizardEmail>(); };
  const Case cases[] = {{std::make_unique<TestComposer>(), editAuto, true, 0},
                        {std::make_unique<TestComposer>(adding), newAuto, true, 1},
                        {std::make_unique<TestComposer>(adding), newAuto, false, 0, 1},
                        {email(), editAuto, true, 1},
                        {email(), sendAuto, false, 0, 1},
                        {email(), newAuto, true, 1},
                        {email(), newAuto, false, 0}};
  for (const Case& each : cases) {
    const int before = notificationCount();
    const int dialogsBefore = errors.dialogs();
    errors.answerRest(error_choice::leave, each.dialogs);
    screen.expectWindow(each.composer->name(), [](WindowInUse& window) { window.form().hide(); });
    openComposer(*each.composer, {each.mode}, noId, each.hasEntry ? entry : noId);
    EXPECT_EQ(notificationCount() - before, each.added);
    EXPECT_EQ(each.composer->notifyID() > row, each.added > 0);
    EXPECT_EQ(errors.dialogs() - dialogsBefore, each.dialogs);
    each.composer->unload();
  }
}

TEST_F(ChannelTest, AddressGoesInAndByTheChannelOutAgain) {
  const auto countIn = [](const std::string& text, const std::string& part) {
    int count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
  };
  const Id contact = addRow("Contacts", {{"DisplayName", "Cara Holm"}, {"HomeCity", "Ottawa"}});
  const Id unlisted = addRow("Companies", {{"CompanyName", "Elm"}});
  const Id cedar = addRow("Companies", {{"CompanyName", "Cedar Inc."}});
  const Id cedarClient = addRow("ClientData", {{"CompanyIDNum", cedar}});
  const Id companyEntry = addSchedule(103, 1, notifyDate, {{"ClientNum", cedarClient}});
  const Id contactEntry = addSchedule(103, 1, notifyDate, {{"ContactIDNum", contact}});
  struct Case {
    bool isEmail;  ///< asks the client list, and dates the address
    Id company, contact, entry;
    const char* name;
    int whenUnticked = 0;
  };
  const Case cases[] = {{true, company, noId, entry, "Birch Ltd."},
                        {true, unlisted, contact, entry, "Cara Holm", 2},
                        {true, noId, noId, companyEntry, "Cedar Inc."},
                        {true, noId, noId, contactEntry, "Cara Holm", 2},
                        {false, unlisted, contact, entry, "Elm"},
                        {false, 0, contact, entry, "Cara Holm"}};
  for (const Case& each : cases) {
    row = addRow("ClientNotification", {{"ScheduleIDNum", each.entry},
                                        {"NotificationType", 1},
                                        {"NotificationDate", notifyDate},
                                        {"CompanyIDNum", each.company},
                                        {"ContactIDNum", each.contact},
                                        {"Memo", memo}});
    const auto script = [&](WindowInUse& window) {
      for (const int times : {1, each.whenUnticked}) {
        window.click("chkAddAddress");
        EXPECT_EQ(window.focus(), "rtbText");
        const std::string text = window.read("rtbText");
        EXPECT_EQ(countIn(text, each.name), times) << text;
        EXPECT_EQ(countIn(text, "April 23, 2026"), each.isEmail ? times : 0) << text;
        EXPECT_EQ(countIn(text, "Your return is due."), 1) << text;
      }
      cancel(window);
    };
    each.isEmail ? compose(ComposerMode::editAuto, script)
                 : useTest({ComposerMode::editAuto}, script);
  }
}

TEST_F(ChannelTest, LocksItsFurtherInputsWithTheFields) {
  execute("UPDATE ClientNotification SET NotificationSent = 1");
  useTest({ComposerMode::editAuto}, [](WindowInUse& window) {
    for (const char* name : {"txtSubject", "cboTo", "cboCc", "rtbText"})
      EXPECT_FALSE(window.canUse(name)) << name;
    cancel(window);
  });
}

TEST_F(ChannelTest, BlankSendLeavesNoRow) {
  TestComposer composer;
  screen.expectWindow("frmSendNotificationWizardEmail", [](WindowInUse& window) {
    EXPECT_FALSE(window.sees("txtNotificationField"));
    EXPECT_EQ(window.read("cmdFinish"), "Call completed");
    cancel(window);
  });
  composer.initializeBlankSend(row);
  EXPECT_TRUE(rowExists());
  composer.unload();
  EXPECT_FALSE(rowExists());
}

class PhoneComposer : public ComposerTest {
 protected:
  Result call(ComposerPurpose purpose, HeadlessPerson::Script script) {
    frmSendNotificationWizardPhone composer;
    return use(composer, purpose, std::move(script));
  }
  void addCall() {
    row = addRow("ClientNotification", {{"ScheduleIDNum", entry},
                                        {"NotificationType", 8},
                                        {"NotificationDate", notifyDate},
                                        {"CompanyIDNum", company},
                                        {"Field1", "Ann"}});
  }
};

TEST_F(PhoneComposer, TheButtonsAreTheOutcomesOfTheCall) {
  using enum ComposerMode;
  struct Case {
    ComposerMode mode;
    const char *button, *caption;
    Result result;
    const char* after;  ///< person, number, times, and whether it was sent; "" when the row is gone
    const char* bits;
  };
  const char* const edited = "Bea|555-0122|mornings|0|\n";
  const char* const asBefore = "Ann|NULL|NULL|0|\n";
  const Case cases[] = {
      {notifyNow, "cmdFinish", "Call completed", {false, false}, "", "0"},
      {notifyNow, "cmdCancel", "No answer, call again later!", {true, false}, "", "0"},
      {sendAuto, "cmdFinish", "Call completed", {false, true}, edited, "0"},
      {sendAuto, "cmdCancel", "No answer, call again later!", {true, false}, asBefore, "0"},
      {editAuto, "cmdFinish", "Finish", {false, false}, edited, "0"},
      {editAuto, "cmdCancel", "Cancel", {true, false}, asBefore, "0"},
      {newAuto, "cmdCancel", "Cancel", {true, false}, "", "0"},
      {newAuto, "cmdFinish", "Finish", {false, false}, edited, "8"},
  };
  confirmArming();
  screen.expectMessage(
      "You will be reminded to call this client about their upcoming task on Thursday, April 23, "
      "2026",
      message_style::armedConfirmed);
  for (const Case& each : cases) {
    SCOPED_TRACE(std::string(each.button) + std::to_string(static_cast<int>(each.mode)));
    addCall();
    EXPECT_EQ(call({each.mode},
                   [&](WindowInUse& window) {
                     EXPECT_EQ(window.read(each.button), each.caption);
                     EXPECT_EQ(window.sees("txtNotificationField"),
                               each.mode == editAuto || each.mode == newAuto);
                     window.type("txtToCall", "Bea");
                     window.type("cboPhoneNumber", "555-0122");
                     window.type("txtAvailableTimes", "mornings");
                     window.click(each.button);
                   }),
              each.result);
    EXPECT_EQ(notification(row, "Field1, Field2, Field3, NotificationSent"), each.after);
    EXPECT_EQ(channelBits(), each.bits);
  }
}

TEST_F(PhoneComposer, ShowsTheNumbersOfTheClientAndStoresUnderTheKindAsGiven) {
  execute("UPDATE Companies SET OfficeNumber = '555-0112'");
  addCall();
  call({ComposerMode::editAuto, appointmentNotification, 46142}, [&](WindowInUse& window) {
    EXPECT_EQ(window.focus(), "txtToCall");
    EXPECT_THAT(window.entries("cboPhoneNumber"), testing::Contains(testing::HasSubstr("0112")));
    EXPECT_EQ(window.read("cboPhoneNumber"), "");
    window.type("txtAvailableTimes", "late");
    window.click("cmdFinish");
  });
  EXPECT_EQ(column("Field3"), "late");
  screen.expectQuestion(
      "Are you sure you want to refresh this comment?  This will replace the existing text.",
      message_style::batchNotice, true);
  call({ComposerMode::sendAuto}, [](WindowInUse& window) {
    window.click("cmdRefreshComment");
    window.click("cmdCancel");
  });
  EXPECT_THAT(column("Memo"), testing::HasSubstr("Please file your return."));
  EXPECT_EQ(column("Field3"), "late");
}

}  // namespace
}  // namespace autonotify::test
