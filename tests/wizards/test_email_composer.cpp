#include "ComposerTest.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

constexpr const char* noAddress =
    "There is no email address entered for this notification.  Do you want to continue anyway?";

void finish(WindowInUse& window) {
  EXPECT_TRUE(window.click("cmdFinish"));
}
void cancel(WindowInUse& window) {
  EXPECT_TRUE(window.click("cmdCancel"));
}

TEST_F(ComposerTest, FieldsShowTheRowAndTheListsItsClient) {
  linkDefaultContact(addRow("Contacts", {{"DisplayName", "Ann"}, {"BusinessEmail", "ann@birch"}}),
                     company);
  compose(ComposerMode::editAuto, [&](WindowInUse& window) {
    EXPECT_EQ(window.form().caption(), "Send Notification (Email)");
    EXPECT_EQ(window.focus(), "cboTo");
    EXPECT_EQ(window.read("cboTo"), "ann@birch");
    EXPECT_EQ(window.read("cboCc"), "");
    EXPECT_EQ(window.read("txtSubject"), "Your GST Return");
    EXPECT_EQ(window.read("txtNotificationField"), "Thursday, April 23, 2026");
    EXPECT_EQ(window.read("dtpNotification"), "2026-04-23");
    for (const char* list : {"cboTo", "cboCc", "cboBcc"}) {
      EXPECT_THAT(window.entries(list), testing::IsSupersetOf({"office@birch", "ann@birch"}));
    }
    EXPECT_FALSE(window.sees("lblScheduled"));
    EXPECT_TRUE(window.canUse("cmdRefreshComment"));
    window.choose("cboCc", "office@birch");
    window.type("txtSubject", "Soon");
    window.type("cboTo", "");
    finish(window);
  });
  EXPECT_EQ(column("Field1") + "|" + column("Field2") + "|" + column("Field4"),
            "ann@birch|office@birch|Soon")
      << "a field that was cleared keeps its column";
  closeDatabase();
  compose(ComposerMode::editAuto, [](WindowInUse& window) {
    EXPECT_EQ(window.read("cboTo"), "");
    cancel(window);
  });
}

TEST_F(ComposerTest, SentRowIsLockedForEditingAlone) {
  execute("UPDATE ClientNotification SET NotificationSent = 1");
  compose(ComposerMode::editAuto, [](WindowInUse& window) {
    EXPECT_TRUE(window.sees("lblScheduled"));
    EXPECT_EQ(window.read("lblScheduled"), "This notification has already been sent");
    cancel(window);
  });
  addRow("ClientNotification", {{"SentTime", "2026-04-02 14:05:00"}});
  execute(
      "UPDATE ClientNotification SET SentTime = (SELECT max(SentTime) FROM ClientNotification)");
  compose(ComposerMode::sendAuto, [](WindowInUse& window) {
    EXPECT_EQ(window.read("lblScheduled"),
              "This notification has already been sent on Thursday, April 2, 2026 at 2:05 pm");
    EXPECT_TRUE(window.canUse("cboTo"));
    EXPECT_FALSE(window.sees("txtNotificationField"));
    finish(window);
  });
}

TEST_F(ComposerTest, MessageGoesOutInTheOrderOfTheContract) {
  compose(ComposerMode::sendAuto, [](WindowInUse& window) {
    window.type("cboBcc", "file@firm");
    finish(window);
  });
  EXPECT_THAT(
      mailProgram.calls,
      ElementsAre("errorClass=set", "MsgboxClass=set", "locale=set", "database=set", "folder=set",
                  "to=ann@birch", "cc=", "bcc=file@firm", "subject=Your GST Return",
                  testing::StartsWith("body=Your return is due."), "send="));
}

TEST_F(ComposerTest, MissingAddressIsAskedAbout) {
  for (const auto& [mode, yes, yields] : {std::tuple{ComposerMode::sendAuto, false, 0},
                                          {ComposerMode::sendAuto, true, 4},
                                          {ComposerMode::notifyNow, true, 6}}) {
    execute("UPDATE ClientNotification SET Field1 = NULL");
    mailProgram.calls.clear();
    const int before = screen.pumps();
    const Result result = compose(mode, [&, yes = yes](WindowInUse& window) {
      window.type("cboCc", "someone@birch");
      screen.expectQuestion(noAddress, message_style::notice, yes);
      finish(window);
      EXPECT_EQ(window.form().isVisible(), !yes);
      EXPECT_EQ(column("Field2"), "someone@birch") << "stored before the question";
      if (!yes) cancel(window);
    });
    EXPECT_EQ(result.sendSuccessfulFlag, yes);
    EXPECT_EQ(screen.pumps() - before, yields);
    EXPECT_EQ(mailProgram.calls.empty(), !yes);
  }
}

TEST_F(ComposerTest, MessageSentNowIsMarkedBeforeItsRowGoes) {
  const auto written = columnsWrittenBy([&] { compose(ComposerMode::notifyNow, finish); });
  EXPECT_THAT(written, testing::Contains("NotificationSent=True"));
  EXPECT_THAT(written, testing::Contains("SentTime=" + toText(clock.now())));

  const auto finishWithoutClock = [](WindowInUse& window) {
    references().platform.clock = nullptr;
    finish(window);
  };
  errors.answer({error_choice::next, error_choice::next, error_choice::next});
  row = addNotification(entry, nt_Email, notifyDate);
  screen.answerAll(true);
  EXPECT_THAT(columnsWrittenBy([&] { compose(ComposerMode::notifyNow, finishWithoutClock); }),
              testing::IsSupersetOf({"NotificationSent=True", "SentByUserIDNum=7"}));
  EXPECT_THAT(calls.log(), testing::Not(testing::Contains(testing::HasSubstr("SentTime="))));
}

TEST_F(ComposerTest, FailedSendShowsTheProgramsWordsAndCloses) {
  mailProgram.sends = false;
  screen.expectMessage("The mail program is closed.", message_style::notice);
  EXPECT_EQ(compose(ComposerMode::notifyNow, finish), (Result{false, false}));
  EXPECT_FALSE(rowExists());
}

TEST_F(ComposerTest, ArmingIsConfirmedWhenThePersonWantsIt) {
  // The last is the word for the item; null: no confirmation.
  const std::tuple<notificationTypes, int, const char*> cases[] = {
      {remittanceNotification, 13, "task"},        {appointmentNotification, 3, "appointment"},
      {appointmentNotification, 13, "time entry"}, {appointmentNotification, 5, "task"},
      {appointmentNotification, 77, nullptr},      {static_cast<notificationTypes>(3), 3, nullptr},
      {appointmentNotification, 46142, nullptr},   {appointmentNotification, 0x10003, nullptr},
      {remittanceNotification, 77, "task"}};
  const Id appointment = addRow("Appointments", {{"Subject", "Review"}});
  const Id docket = addRow("Dockets", {{"Subject", "Review"}});
  execute("UPDATE ClientNotification SET ApptIDNum = " + std::to_string(appointment) +
          ", DocketIDNum = " + std::to_string(docket) + ", TaskIDNum = 1");
  const std::string told = "This client will be notified of their upcoming ";
  const std::tuple<Make, std::string, const char*> channels[] = {
      {email, told, " by email on "},
      {fax, told, " by fax on "},
      {letter, told, " by letter on "},
      {phone, "You will be reminded to call this client about their upcoming ", " on "}};
  int bits = 0;
  for (const auto& [channel, before, after] : channels) {
    for (const bool wants : {false, true}) {
      execute("UPDATE UserGeneralSettings SET WarningMessagesExitAutomaticNotificationWarning=0");
      if (wants) confirmArming();
      for (const auto& [type, kind, word] : cases) {
        if (wants && word) {
          screen.expectMessage(before + word + after + "Friday, April 24, 2026",
                               message_style::armedConfirmed);
        }
        // A diary item of an unknown kind has no table.
        if (type == appointmentNotification && !word) errors.answer({2});
        compose(channel, {ComposerMode::newAuto, type, kind}, [](WindowInUse& window) {
          window.type("txtNotificationField", "Apr 24 2026");
          finish(window);
        });
        EXPECT_EQ(column("NotificationDate"), "2026-04-24");
      }
    }
    bits = bits * 2 + 1;
    EXPECT_EQ(channelBits(), std::to_string(bits));
  }
  for (const char* table : {"Appointments", "Dockets"})
    EXPECT_EQ(dump(std::string("SELECT notifyType, ClientNotifiedFlag FROM ") + table), "15|1|\n");
}

TEST_F(ComposerTest, DateThatIsMissingIsNotMadeUp) {
  frmSendNotificationWizardEmail opened;
  screen.expectWindow(opened.name(), finish);
  openComposer(opened, {ComposerMode::editAuto}, row);
  execute("UPDATE ClientNotification SET NotificationDate = NULL");
  errors.answer({error_choice::next});
  screen.expectWindow(opened.name(), [](WindowInUse& window) {
    EXPECT_EQ(window.read("txtNotificationField"), "") << "the date of the time before";
    window.click("chkAddAddress");
    EXPECT_NE(window.read("rtbText").find("April 15, 2026"), std::string::npos);
    finish(window);
  });
  openComposer(opened, {ComposerMode::editAuto}, row);
  EXPECT_EQ(column("NotificationDate"), "");

  for (const Make channel : {email, fax, letter, phone}) {
    execute("UPDATE ClientNotification SET NotificationDate = NULL");
    execute("UPDATE Schedule SET notifyType = 0");
    errors.answer({error_choice::next});
    compose(channel, {ComposerMode::newAuto}, [&](WindowInUse& window) {
      screen.expectMessage("You must enter a valid notification date.",
                           message_style::valueRefused);
      finish(window);
      EXPECT_EQ(channelBits(), "0") << "armed for no day";
      window.type("txtNotificationField", "Apr 24 2026");
      finish(window);
    });
    EXPECT_EQ(column("NotificationDate"), "2026-04-24");
  }
}

TEST_F(ComposerTest, RefreshedTextIsStoredAtOnce) {
  const auto refresh = [&](WindowInUse& window, bool yes) {
    screen.expectQuestion(
        "Are you sure you want to refresh this comment?  This will replace the existing text.",
        message_style::batchNotice, yes);
    window.click("cmdRefreshComment");
  };
  for (const bool yes : {false, true}) {
    compose(ComposerMode::editAuto, [&](WindowInUse& window) {
      window.type("txtSubject", "not stored");
      refresh(window, yes);
      cancel(window);
    });
    EXPECT_EQ(column("Memo").find("Please file your return.") != std::string::npos, yes);
  }
  EXPECT_EQ(column("Field4"), "Your GST Return");
  // The item's text is sought under the notification's number, as one of an appointment.
  addAllTold(*this, "composer_office.txt", "appointment of the row's number");
  compose({ComposerMode::editAuto, appointmentNotification, Dockets}, [&](WindowInUse& window) {
    refresh(window, true);
    EXPECT_NE(window.read("rtbText").find("This appointment is regarding Year end."),
              std::string::npos);
    window.type("txtSubject", "Our meeting");
    finish(window);
  });
  EXPECT_EQ(column("Field4"), "Our meeting");
  EXPECT_NE(column("Memo").find("Year end."), std::string::npos);
}

TEST_F(ComposerTest, InitializersSurviveEveryFault) {
  using enum ComposerMode;
  const std::tuple<Make, ComposerMode, const char*> cases[] = {
      {email, notifyNow, nullptr}, {fax, newAuto, nullptr},    {letter, sendAuto, "drLetter"},
      {phone, sendAuto, nullptr},  {phone, newAuto, nullptr},  {phone, editAuto, nullptr},
      {fax, editAuto, nullptr},    {letter, editAuto, nullptr}};
  for (const auto& each : cases) {
    const auto run = [&](TestHost& host) {
      const auto& [makeComposer, mode, document] = each;
      const auto composer = makeComposer();
      host.screen.answerAll(true);
      host.screen.expectWindow(composer->name(), [](WindowInUse& window) {
        if (window.canUse("cmdFinish")) window.click("cmdFinish");
        if (window.form().isVisible()) window.click("cmdCancel");
      });
      if (document) host.screen.expectReport(document, [](ReportInUse& shown) { shown.close(); });
      openComposer(*composer, {mode}, row);
      composer->unload();
      EXPECT_TRUE(host.screen.FormHost::openForms().empty());
      return std::string(composer->SendSuccessfulFlag() ? "sent" : "not sent");
    };
    walkFaults({.run = run, .defaultResult = "not sent"},
               {[](TableRows rows) { ComposerOffice{rows}; }});
  }
}

constexpr const char* weekend =
    "This date falls on a weekend.  Would you like Morvane to adjust this date to the previous "
    "Friday instead?";
constexpr DateTime saturday = DateTime::of(2026, 4, 18);

TEST_F(ComposerTest, TypedDatesAreTakenMovedOrRefused) {
  addHoliday(DateTime::of(2026, 5, 1));
  enum class Question { none, yes, no };
  const std::tuple<const char*, Question, const char*, const char*> cases[] = {
      {"Apr 17 2026", Question::none, "Friday, April 17, 2026", "2026-04-17"},
      {"4/18/2026", Question::yes, "Friday, April 17, 2026", "2026-04-17"},
      {"4/19/2026", Question::no, "Sunday, April 19, 2026", "2026-04-19"},
      {"May 2 2026", Question::yes, "Thursday, April 30, 2026", "2026-04-30"}};
  for (const auto& [typed, question, text, stored] : cases) {
    SCOPED_TRACE(typed);
    compose(ComposerMode::editAuto, [&, typed = typed, question = question,
                                     text = text](WindowInUse& window) {
      window.type("txtNotificationField", typed);
      if (question != Question::none)
        screen.expectQuestion(weekend, message_style::alreadySent, question == Question::yes);
      window.tabTo("cmdFinish");
      EXPECT_EQ(window.read("txtNotificationField"), text);
      if (question == Question::no) {
        screen.expectQuestion(weekend, message_style::alreadySent, false);
        window.tabTo("txtNotificationField");
      }
      window.click("cmdFinish");
    });
    EXPECT_EQ(column("NotificationDate"), stored);
  }
}

TEST_F(ComposerTest, TextThatIsNoDateIsRefusedAndTheFocusStays) {
  const auto refuse = [&](WindowInUse& window, const char* restored) {
    window.type("txtNotificationField", "someday");
    screen.expectMessage("You must enter a valid notification date.", message_style::valueRefused);
    EXPECT_FALSE(window.click("cmdFinish"));
    EXPECT_EQ(window.focus(), "txtNotificationField");
    EXPECT_EQ(window.read("txtNotificationField"), restored);
  };
  compose(ComposerMode::editAuto, [&](WindowInUse& window) {
    refuse(window, "");
    window.type("txtNotificationField", "Apr 21 2026");
    window.tabTo("cboTo");
    refuse(window, "Tuesday, April 21, 2026");
    window.click("cmdCancel");
  });
  EXPECT_EQ(column("NotificationDate"), "2026-04-23");
}

TEST_F(ComposerTest, PickedDateGoesThroughTheTextField) {
  for (const bool yes : {true, false}) {
    compose(ComposerMode::editAuto, [&](WindowInUse& window) {
      screen.expectQuestion(weekend, message_style::alreadySent, yes);
      window.pickDate("dtpNotification", saturday);
      EXPECT_EQ(window.focus(), "txtNotificationField");
      EXPECT_EQ(window.read("txtNotificationField"),
                yes ? "Friday, April 17, 2026" : "Saturday, April 18, 2026");
      if (!yes) screen.expectQuestion(weekend, message_style::alreadySent, false);
      window.click("cmdFinish");
    });
    EXPECT_EQ(column("NotificationDate"), yes ? "2026-04-17" : "2026-04-18");
  }
}

TEST_F(ComposerTest, CalendarOpensOnTheTypedDateOrToday) {
  compose(ComposerMode::editAuto, [&](WindowInUse& window) {
    auto& composer = dynamic_cast<frmSendNotificationWizardEmail&>(window.form());
    DatePicker& picker = composer.notificationDate.dtpNotification;
    TextBox& text = composer.notificationDate.txtNotificationField;
    for (const auto& [typed, opens] :
         {std::pair{"May 5 2026", DateTime::of(2026, 5, 5)}, {"some day", clock.today()}}) {
      text.setText(typed);
      picker.acceptDropDown();
      EXPECT_EQ(picker.value(), opens) << typed;
    }
    window.click("cmdCancel");
  });
}

}  // namespace
}  // namespace autonotify::test
