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

constexpr const char* channelNames[] = {"Email", "Fax", "Letter", "Phone"};

std::string at(const std::string& control, std::size_t channel) {
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
  const std::string start = "This wizard will allow you to ";
  const std::string setup = start + "setup an automatic notification for ";
  const Id contact = addRow("Contacts", {{"DisplayName", "Cara Holm"}});
  const std::tuple<Initialize, int, Id, std::string> cases[] = {
      {now, 2, contact, start + "notify Birch Ltd. regarding their GST Return."},
      {now, 1, noId, start + "notify for client of their GST Return."},
      {now, 3, contact, start + "notify for client of their GST Return."},
      {automatic, 2, noId, setup + "Birch Ltd. regarding their GST Return."},
      {automatic, 4, contact, setup + "this client's GST Return."},
      {automatic, 1, contact, setup + "Cara Holm regarding their GST Return."}};
  calls.record(true);
  for (const auto& [open, client, contactID, text] : cases) {
    const unsigned bits = client == 4 ? 5 : client == 2 ? 10 : 0;
    // 260 is too large for a set of bits: the person is told, and no channel is ticked.
    if (bits == 0) errors.answer({error_choice::next});
    execute("UPDATE Schedule SET notifyType=" + std::to_string(bits == 0 ? 260 : bits) +
            ", ContactIDNum=" + std::to_string(contactID));
    Wizard wizard;
    EXPECT_TRUE(use(wizard, open, client, [&, isNow = open == now, text = text](auto& window) {
      EXPECT_EQ(window.read("Label2"), text);
      for (std::size_t i = 0; i < 4; ++i) {
        const bool isTicked = !isNow && (bits >> i & 1);
        EXPECT_EQ(window.sees(at("chkNotify", i)), isNow);
        EXPECT_EQ(window.sees(at("chkAutoNotify", i)), !isNow);
        EXPECT_EQ(window.read(at("chkAutoNotify", i)), isTicked ? "yes" : "no");
        EXPECT_EQ(window.sees(at("edit", i)), isTicked);
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
  enum Question { none, yes, no };
  struct Case {
    Initialize open;
    bool isArmed;
    const char* click;
    Question question;
    const char* inComposer;  ///< null: there is none, and the window stays
    const char* after;       ///< rows and pointer when it yields; rows, whether armed, cancelled
  };
  const Case cases[] = {
      {now, false, "chkNotify", none, "cmdCancel", "0 busy 0 no cancelled"},
      {automatic, false, "chkAutoNotify", none, "cmdFinish", "1 busy 1 armed"},
      {automatic, false, "chkAutoNotify", none, "cmdCancel", "1 busy 0 no cancelled"},
      {automatic, true, "edit", none, "cmdCancel", "1 free 1 armed cancelled"},
      {automatic, true, "edit", none, "cmdFinish", "1 free 1 armed"},
      {automatic, true, "chkAutoNotify", none, nullptr, "0 no cancelled"},
      {automatic, true, "chkAutoNotify", yes, nullptr, "0 no cancelled"},
      {automatic, true, "chkAutoNotify", no, "cmdFinish", "2 busy 2 armed"}};
  const std::string entryText = std::to_string(entry);
  for (const Case& each : cases) {
    if (each.question == yes)
      execute("UPDATE UserGeneralSettings SET WarningMessagesCancelAutoNotificationWarning=1");
    for (std::size_t i = 0; i < 4; ++i) {
      SCOPED_TRACE(each.after + at(each.click, i));
      const std::string bit = std::to_string(1 << i);
      execute("DELETE FROM ClientNotification");
      execute("UPDATE Schedule SET notifyType=" + (each.isArmed ? bit : "0"));
      if (each.isArmed) addNotification(entry, 1 << i, notifyDate);
      std::string after;
      Wizard wizard;
      const bool cancelled = use(wizard, each.open, 2, [&](WindowInUse& window) {
        if (each.question != none)
          screen.expectQuestion("Are you sure you want to cancel this automatic notification?",
                                message_style::valueRefused, each.question == yes, wizard.name());
        if (each.inComposer) {
          screen.duringPump(1, [&] {
            EXPECT_FALSE(wizard.isVisible());
            after = std::to_string(notificationCount()) +
                    (screen.pointer() == Pointer::busy ? " busy " : " free ");
          });
          expectComposer(i, 2, each.open == now, "NotificationType, ScheduleIDNum",
                         bit + "|" + entryText + "|\n", each.inComposer);
        }
        window.click(at(each.click, i));
        EXPECT_EQ(wizard.isVisible(), !each.inComposer);
        if (each.inComposer) return;
        EXPECT_FALSE(window.sees(at("edit", i)));
        window.click("cmdCancel");
      });
      after += std::to_string(notificationCount()) + (channelBits() == bit ? " armed" : " no");
      EXPECT_EQ(after + (cancelled ? " cancelled" : ""), each.after);
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
  const Id contact = addRow("Contacts", {{"DisplayName", "Cara Holm"}});
  const Id unlisted = addRow("Companies", {{"CompanyName", "Elm"}});
  struct Case {
    int kind;
    const char *table, *link;
    Id company, contact;
    const char* client;
    int offered;
    std::vector<int> clicks;
    std::size_t composer;  ///< 3: none opens
  };
  const Case cases[] = {{3, "Appointments", "ApptIDNum", company, contact, "Cara Holm", 1, {}, 0},
                        {13, "Dockets", "DocketIDNum", company, noId, "Birch Ltd.", 4, {1}, 1},
                        {3, "Appointments", "ApptIDNum", unlisted, 99, "this client", 8, {2}, 2},
                        {5, "Tasks", "TaskIDNum", company, noId, "Birch Ltd.", 2, {1}, 3}};
  calls.record(true);
  for (const Case& each : cases) {
    const Id item = addRow(each.table, {{"CompanyIDNum", each.company},
                                        {"ContactIDNum", each.contact},
                                        {"DateFrom", notifyDate},
                                        {"TimeFrom", notifyDate},
                                        {"TimeTo", notifyDate}});
    EXPECT_TRUE(useItem(each.kind, item, each.offered, [&](WindowInUse& window) {
      EXPECT_EQ(window.read("Label2"), sentence + each.client);
      for (const int box : each.clicks)
        window.click(at("chkNotify", static_cast<std::size_t>(box)));
      const int rows = notificationCount();
      errors.answerRest(error_choice::next, each.composer < 3);
      references().platform.clock = nullptr;
      window.click("cmdFinish");
      references().platform.clock = &clock;
      EXPECT_TRUE(window.form().isVisible() && notificationCount() == rows) << "of no day";
      if (each.composer < 3)
        expectComposer(each.composer, 0, true,
                       std::string("NotificationType, NotificationDate, ") + each.link,
                       std::to_string(1 << each.composer) + "|" + toText(today()) + "|" +
                           std::to_string(item) + "|\n",
                       "cmdCancel");
      window.click("cmdFinish");
      EXPECT_EQ(window.form().isVisible(), each.composer == 3);
      if (each.composer == 3) window.click("cmdCancel");
    }));
    for (const auto& [kind, id] : {std::pair{each.kind, item + 1}, {each.kind, 0}, {4, item}})
      EXPECT_EQ(useItem(kind, id, 1,
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

}  // namespace
}  // namespace autonotify::test
