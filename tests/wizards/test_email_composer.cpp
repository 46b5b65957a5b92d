#include "ComposerTest.h"
#include "support/fault_walk.h"
#include "support/window_script.h"

namespace autonotify::test {
namespace {

void finish(WindowInUse& window) {
  EXPECT_TRUE(window.click("cmdFinish"));
}

class ComposerScripts : public ComposerTest, public testing::WithParamInterface<ToldAct> {
 protected:
  /// In a window, where one is open. An act that goes through gives nothing.
  std::string outcome(WindowInUse* window, const ToldAct& told) {
    const std::string &about = told[1], &text = told[2];
    const std::string newest =
        " FROM ClientNotification ORDER BY ClientNotificationID DESC LIMIT 1";
    const std::map<std::string, std::function<std::string()>> acts = {
        {"sql", [&] { return execute(about), ""; }},
        {"shut", [&] { return closeDatabase(), ""; }},
        {"mail fails", [&] { return mailProgram.sends = false, ""; }},
        {"go on after a failure", [&] { return errors.answer({error_choice::next}), ""; }},
        {"hear", [&] { return hear(about, text), ""; }},
        {"client", [&] { return company = std::stoi(about), blankContact = std::stoi(text), ""; }},
        {"newest", [&] { return dump("SELECT " + about + newest); }},
        {"row", [&] { return notification(row, about); }},
        {"channels", [&] { return channelBits(); }},
        {"mailed", [&] { return testing::PrintToString(std::exchange(mailProgram.calls, {})); }},
        {"yields", [&] { return toText(screen.pumps() - std::exchange(pumps_, screen.pumps())); }}};
    const auto found = acts.find(told[0]);
    return found == acts.end() ? outcomeIn(*window, told) : found->second();
  }
  void expectOutcome(WindowInUse* window, const ToldAct& told) {
    EXPECT_EQ(outcome(window, told), told[3]) << told[0] + " " + told[1] + " " + told[2];
  }

 private:
  int pumps_ = 0;
};

TEST_P(ComposerScripts, GiveWhatTheyTell) {
  const std::map<std::string, Make> composers = {
      {"email", email}, {"fax", fax}, {"letter", letter}, {"phone", phone}};
  const std::map<std::string, ComposerPurpose> purposes = {
      {"blank", {ComposerMode::blankSend}},
      {"arm", {ComposerMode::newAuto}},
      {"edit", {ComposerMode::editAuto}},
      {"edit for a time entry", {ComposerMode::editAuto, appointmentNotification, Dockets}},
      {"send", {ComposerMode::sendAuto}},
      {"send now", {ComposerMode::notifyNow}}};
  const std::vector<ToldAct> script = rowsOf("composer_scripts.txt", GetParam()[0], 4);
  for (auto told = script.begin(); told != script.end(); ++told) {
    if (told->at(0) != "open") {
      expectOutcome(nullptr, *told);
      continue;
    }
    const auto act = [&](WindowInUse& window) {
      while ((++told)->at(0) != "done") expectOutcome(&window, *told);
    };
    const auto [isCancelled, isSent] =
        compose(composers.at(told->at(1)), purposes.at(told->at(2)), act);
    EXPECT_EQ(isCancelled ? "cancelled" : isSent ? "sent" : "", told->at(3));
  }
}

INSTANTIATE_TEST_SUITE_P(Composers, ComposerScripts,
                         testing::ValuesIn(rowsOf("composer_scripts.txt", "scripts", 1)));

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
}

/// The names of the documents in all folders of clients.
std::string filedIn(const TemporaryFolder& documents) {
  std::string names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(documents.path()))
    if (entry.path().extension() == ".mvw") names += " " + entry.path().filename().string();
  return names;
}

struct Opening {
  Make makeComposer;
  ComposerMode mode;
  /// Comes up when it is finished.
  const char* document;
};
void PrintTo(const Opening& opening, std::ostream* out) {
  *out << "mode " << static_cast<int>(opening.mode);
}

class Initializers : public ComposerTest, public testing::WithParamInterface<Opening> {};
TEST_P(Initializers, SurviveEveryFault) {
  const auto run = [&](TestHost& host) {
    const auto& [makeComposer, mode, document] = GetParam();
    const auto composer = makeComposer();
    host.screen.answerAll(true);
    // A row that is added and cannot be deleted again is none too many.
    if (mode == ComposerMode::blankSend)
      host.plainDatabase->connection().exec("DELETE FROM ClientNotification");
    host.screen.expectWindow(composer->name(), [](WindowInUse& window) {
      if (window.canUse("cmdFinish")) window.click("cmdFinish");
      if (window.form().isVisible()) window.click("cmdCancel");
    });
    if (document) host.screen.expectReport(document, [](ReportInUse& shown) { shown.close(); });
    openComposer(*composer, {mode}, row, noId, company);
    composer->unload();
    EXPECT_TRUE(host.screen.FormHost::openForms().empty());
    return (composer->SendSuccessfulFlag() ? "sent" : "not sent") + filedIn(host.documents);
  };
  walkFaults({.run = run, .defaultResult = "not sent"},
             {[](TableRows rows) { ComposerOffice{rows}; }});
}

std::vector<Opening> openings() {
  using enum ComposerMode;
  return {
      {email, notifyNow, nullptr}, {fax, newAuto, nullptr},        {letter, sendAuto, "drLetter"},
      {phone, sendAuto, nullptr},  {phone, newAuto, nullptr},      {phone, editAuto, nullptr},
      {fax, editAuto, nullptr},    {letter, editAuto, nullptr},    {phone, notifyNow, nullptr},
      {letter, newAuto, nullptr},  {fax, notifyNow, "drFax"},      {letter, notifyNow, "drLetter"},
      {fax, blankSend, "drFax"},   {letter, blankSend, "drLetter"}};
}
INSTANTIATE_TEST_SUITE_P(Composers, Initializers, testing::ValuesIn(openings()));

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
