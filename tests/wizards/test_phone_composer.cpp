#include "ComposerTest.h"
#include "wizards/frmSendNotificationWizardPhone.h"

namespace autonotify::test {
namespace {

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
