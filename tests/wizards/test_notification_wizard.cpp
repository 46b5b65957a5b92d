#include "ComposerTest.h"
#include "contract/firm_rules.h"
#include "wizards/frmSendNotificationWizard.h"
#include "wizards/frmSendNotificationWizardApptNotifyNow.h"

namespace autonotify::test {
namespace {

using Wizard = frmSendNotificationWizard;
using Initialize = void (Wizard::*)(enumAutoNotifyClientType, Id);
constexpr Initialize now = &Wizard::InitializeNotifyNow;
constexpr Initialize automatic = &Wizard::InitializeAutoNotify;

constexpr const char* cases = "wizard_cases.txt";
constexpr const char* channelNames[] = {"Email", "Fax", "Letter", "Phone"};

std::string controlOf(const std::string& control, std::size_t channel) {
  return control == "edit" ? control + channelNames[channel]
                           : control + "(" + std::to_string(channel) + ")";
}

class WizardTest : public ComposerTest {
 protected:
  bool use(Wizard& wizard, Initialize opening, int client, HeadlessPerson::Script script) {
    screen.expectWindow(wizard.name(), std::move(script));
    (wizard.*opening)(static_cast<enumAutoNotifyClientType>(client), entry);
    wizard.unload();
    return wizard.cancelFlag();
  }
  /// How many recordsets have not been closed since the recording of calls began.
  int leftOpen() {
    int count = 0;
    for (const std::string& call : calls.log())
      count += call.starts_with("openRecordset") - call.starts_with("closeRecordset");
    return count;
  }
  bool useItem(int kind, Id item, int channel, HeadlessPerson::Script script) {
    frmSendNotificationWizardApptNotifyNow panel;
    screen.expectWindow(panel.name(), std::move(script));
    panel.InitializeNotifyNow(static_cast<CurrentDayTimerType>(kind), item,
                              static_cast<notifyType>(channel));
    panel.unload();
    return panel.cancelFlag();
  }
  /// The next window is the composer of the channel, once the host was yielded to as often, on a
  /// row that holds this.
  void expectComposer(std::size_t channel, int yields, bool isNow, std::string columns,
                      std::string held, std::string button) {
    screen.expectWindow(std::string("frmSendNotificationWizard") + channelNames[channel],
                        [=, this, before = screen.pumps()](WindowInUse& window) {
                          const auto& form = dynamic_cast<NotificationComposer&>(window.form());
                          EXPECT_EQ(screen.pumps() - before, yields);
                          EXPECT_EQ(window.sees("txtNotificationField"), !isNow);
                          EXPECT_EQ(notification(form.notifyID(), columns), held);
                          window.click(button);
                        });
  }
};

TEST_F(WizardTest, ShowsWhomItIsAboutAndTheChannelsOfTheEntry) {
  ASSERT_EQ(addRow("Contacts", {{"DisplayName", "Cara Holm"}}), 1);
  calls.record(true);
  for (const auto& [nowOrNot, client, contactID, text] :
       casesOf<bool, int, Id, std::string>(cases, "whom it is about")) {
    const unsigned bits = client == 4 ? 5 : client == 2 ? 10 : 0;
    // 260 is too large for a set of bits: the person is told, and no channel is ticked.
    if (bits == 0) errors.answer({error_choice::next});
    execute("UPDATE Schedule SET notifyType=" + std::to_string(bits == 0 ? 260 : bits) +
            ", ContactIDNum=" + std::to_string(contactID));
    Wizard wizard;
    const auto open = nowOrNot ? now : automatic;
    EXPECT_TRUE(use(wizard, open, client, [&, isNow = nowOrNot, text = text](auto& window) {
      EXPECT_EQ(window.read("Label2"), "This wizard will allow you to " + text);
      for (std::size_t i = 0; i < 4; ++i) {
        const bool isTicked = !isNow && (bits >> i & 1);
        EXPECT_EQ(window.sees(controlOf("chkNotify", i)), isNow);
        EXPECT_EQ(window.sees(controlOf("chkAutoNotify", i)), !isNow);
        EXPECT_EQ(window.read(controlOf("chkAutoNotify", i)), isTicked ? "yes" : "no");
        EXPECT_EQ(window.sees(controlOf("edit", i)), isTicked);
      }
      EXPECT_EQ(screen.pointer(), Pointer::standard);
      window.click("cmdCancel");
    }));
  }
  for (const auto& error : errors.recorded()) EXPECT_EQ(error.number, error_number::overflow);
  EXPECT_EQ(notificationCount(), 1);
  EXPECT_EQ(leftOpen(), 0);
  Wizard wizard;
  wizard.InitializeNotifyNow(enumAutoNotifyNone, 99);
  EXPECT_EQ(leftOpen(), 1);
  EXPECT_EQ(screen.pointer(), Pointer::busy);
  closeDatabase();
  wizard.InitializeAutoNotify(enumAutoNotifyNone, entry);
  wizard.unload();
}

TEST_F(WizardTest, ClicksOnChannelsDoWhatTheySay) {
  const std::string entryText = std::to_string(entry);
  // Whether at once and whether armed before, the click, the answer to a question, the button in
  // the composer (none: the window stays); rows and pointer when it yields; rows, if armed,
  // cancelled.
  for (const auto& row : rowsOf(cases, "clicks on channels", 6)) {
    const bool isNow = row[0] == "now", isArmed = row[1] == "armed";
    const std::string &click = row[2], &answer = row[3], &inComposer = row[4];
    if (answer == "yes")
      execute("UPDATE UserGeneralSettings SET WarningMessagesCancelAutoNotificationWarning=1");
    for (std::size_t i = 0; i < 4; ++i) {
      SCOPED_TRACE(row[5] + controlOf(click, i));
      const std::string bit = std::to_string(1 << i);
      execute("DELETE FROM ClientNotification");
      execute("UPDATE Schedule SET notifyType=" + (isArmed ? bit : "0"));
      if (isArmed) addNotification(entry, 1 << i, notifyDate);
      std::string after;
      Wizard wizard;
      const bool cancelled = use(wizard, isNow ? now : automatic, 2, [&](WindowInUse& window) {
        if (!answer.empty())
          screen.expectQuestion("Are you sure you want to cancel this automatic notification?",
                                message_style::valueRefused, answer == "yes", wizard.name());
        if (!inComposer.empty()) {
          screen.duringPump(1, [&] {
            EXPECT_FALSE(wizard.isVisible());
            after = std::to_string(notificationCount()) +
                    (screen.pointer() == Pointer::busy ? " busy " : " free ");
          });
          expectComposer(i, 2, isNow, "NotificationType, ScheduleIDNum",
                         bit + "|" + entryText + "|\n", inComposer);
        }
        window.click(controlOf(click, i));
        EXPECT_EQ(wizard.isVisible(), inComposer.empty());
        if (!inComposer.empty()) return;
        EXPECT_FALSE(window.sees(controlOf("edit", i)));
        window.click("cmdCancel");
      });
      after += std::to_string(notificationCount()) + (channelBits() == bit ? " armed" : " no");
      EXPECT_EQ(after + (cancelled ? " cancelled" : ""), row[5]);
    }
  }
}

TEST_F(WizardTest, TemplateIsForAdministratorsWhereTheFirmsOwnRulesHold) {
  const std::tuple<const char*, std::int16_t, bool> cases[] = {
      {firmSpecificCode, 2, false}, {firmSpecificCode, 1, true}, {"", 5, true}};
  for (const auto& [firm, level, mayEdit] : cases) {
    plainLocale.settings().firmCode = firm;
    plainLocale.settings().accessLevel = level;
    Wizard wizard;
    use(wizard, automatic, 2, [&, mayEdit = mayEdit](WindowInUse& window) {
      if (!mayEdit)
        screen.expectMessage(
            "You must be logged into an administrator user in order to use this feature.",
            message_style::notice);
      else
        screen.expectWindow("frmTaskAutoNotification", [](WindowInUse& editor) {
          EXPECT_EQ(editor.read("RichTextBox"), "Please file your return.\r\n");
          editor.click("cmdClose");
        });
      window.click("cmdEditNotificationTemplate");
      window.click("cmdCancel");
    });
  }
}

TEST_F(WizardTest, ItemIsNotifiedByTheChannelThatIsTicked) {
  const std::string sentence = "This wizard will allow you to quickly send a notification to ";
  ASSERT_EQ(addRow("Contacts", {{"DisplayName", "Cara Holm"}}), 1);
  ASSERT_EQ(addRow("Companies", {{"CompanyName", "Elm"}}), 2) << "which is no client";
  calls.record(true);
  // The kind, table and link of an item, its company and contact, whom the window names, the
  // channel that it offers, the box that is clicked, and the composer that opens; 3: none.
  for (const auto& row : rowsOf(cases, "channels of items", 9)) {
    const int kind = std::stoi(row[0]);
    const auto composer = static_cast<std::size_t>(std::stoi(row[8]));
    const Id item = addRow(row[1], {{"CompanyIDNum", row[3]},
                                    {"ContactIDNum", row[4]},
                                    {"DateFrom", notifyDate},
                                    {"TimeFrom", notifyDate},
                                    {"TimeTo", notifyDate}});
    EXPECT_TRUE(useItem(kind, item, std::stoi(row[6]), [&](WindowInUse& window) {
      EXPECT_EQ(window.read("Label2"), sentence + row[5]);
      if (!row[7].empty()) window.click("chkNotify(" + row[7] + ")");
      const int rows = notificationCount();
      errors.answerRest(error_choice::next, composer < 3);
      references().platform.clock = nullptr;
      window.click("cmdFinish");
      references().platform.clock = &clock;
      EXPECT_TRUE(window.form().isVisible() && notificationCount() == rows) << "of no day";
      if (composer < 3)
        expectComposer(composer, 0, true, "NotificationType, NotificationDate, " + row[2],
                       std::to_string(1 << composer) + "|" + toText(today()) + "|" +
                           std::to_string(item) + "|\n",
                       "cmdCancel");
      window.click("cmdFinish");
      EXPECT_EQ(window.form().isVisible(), composer == 3);
      if (composer == 3) window.click("cmdCancel");
    }));
    for (const auto& [ofKind, id] : {std::pair{kind, item + 1}, {kind, 0}, {4, item}})
      EXPECT_EQ(useItem(ofKind, id, 1,
                        [](WindowInUse& window) {
                          EXPECT_EQ(window.form().find("Label2")->caption(), "");
                          window.closeBox();
                        }),
                id == item + 1);
  }
  EXPECT_EQ(leftOpen(), 0);
  closeDatabase();
  frmSendNotificationWizardApptNotifyNow panel;
  panel.InitializeNotifyNow(Appointments, 1, nt_Email);
  EXPECT_TRUE(panel.cancelFlag());
  panel.unload();
}

TEST_F(WizardTest, KindOfAnItemStandsForTheEntryWhereTheItemGetsNoRow) {
  execute("UPDATE Schedule SET ScheduleID = 4");
  errors.answerRest(error_choice::leave, 9);
  useItem(4, 1, nt_Letter, [this](WindowInUse& window) {
    expectComposer(2, 0, true, "NotificationType, ScheduleIDNum", "1|4|\n", "cmdCancel");
    window.click("cmdFinish");
  });
}

}  // namespace
}  // namespace autonotify::test
