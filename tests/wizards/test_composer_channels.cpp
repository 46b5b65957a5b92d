#include "ComposerTest.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

using testing::HasSubstr;

/// What is alike in all channels but for its names.
struct Channel {
  Make makeComposer;
  notifyType value;
  /// In the order of the columns "Field1" and on.
  std::vector<const char*> fields;
  /// A box that no column stands behind, and whether a sent row locks it.
  const char* box = nullptr;
  bool isBoxLocked = false;
};
const Channel channels[] = {
    {email, nt_Email, {"cboTo", "cboCc", "cboBcc", "txtSubject"}},
    {fax,
     nt_Fax,
     {"txtTo", "txtFrom", "cboFromFaxNumber", "cboToFaxNumber", "txtPages", "txtSubject"},
     "chkUseLetterhead"},
    {letter, nt_Letter, {}, "chkUseHeader", true},
    {phone, nt_Phone, {"txtToCall", "cboPhoneNumber", "txtAvailableTimes"}}};

class ChannelTest : public ComposerTest {
 protected:
  void addRowOf(notifyType channel) {
    auto cells = rowsOf("composer_office.txt", "row of a channel", 11)[0];
    cells.push_back("NotificationType=" + std::to_string(channel));
    row = addTold(*this, cells);
  }
  std::string fieldsOfRow() {
    return notification(row, "Field1, Field2, Field3, Field4, Field5, Field6");
  }
};

TEST_F(ChannelTest, SaysWhetherARowIsAdded) {
  using enum ComposerMode;
  // Whether there is an entry, how many rows are added, and how many dialogs come up.
  const std::tuple<Make, ComposerMode, bool, int, int> cases[] = {
      {phone, notifyNow, true, 0, 0}, {phone, editAuto, true, 0, 0},
      {fax, newAuto, true, 1, 0},     {fax, newAuto, false, 0, 1},
      {letter, newAuto, false, 0, 1}, {letter, notifyNow, true, 1, 0},
      {email, editAuto, true, 1, 0},  {email, sendAuto, false, 0, 1},
      {email, newAuto, true, 1, 0},   {email, newAuto, false, 0, 0}};
  for (const auto& [makeComposer, mode, hasEntry, added, dialogs] : cases) {
    const int before = notificationCount();
    const int dialogsBefore = errors.dialogs();
    errors.answerRest(error_choice::leave, dialogs);
    const auto composer = makeComposer();
    screen.expectWindow(composer->name(), [isPhone = makeComposer == phone](WindowInUse& window) {
      if (isPhone) window.click("cmdFinish");
      window.form().hide();
    });
    openComposer(*composer, {mode}, noId, hasEntry ? entry : noId);
    EXPECT_EQ(notificationCount() - before, added);
    EXPECT_EQ(composer->notifyID() > row, added > 0);
    EXPECT_EQ(notification(composer->notifyID(), "NotificationType"), added ? "1|\n" : "");
    EXPECT_EQ(errors.dialogs() - dialogsBefore, dialogs);
    composer->unload();
  }
}

TEST_F(ChannelTest, FieldsHoldTheirColumnsUnderWhateverKind) {
  for (const Channel& channel : channels) {
    for (const auto type : {remittanceNotification, appointmentNotification}) {
      addRowOf(channel.value);
      std::string expected;
      const auto edit = [&](WindowInUse& window) {
        for (int i = 0; i < 6; ++i) {
          const std::string column = "Field" + std::to_string(i + 1);
          const bool isShown = i < static_cast<int>(channel.fields.size());
          expected += (isShown ? "new " : "") + column + "|";
          if (!isShown) continue;
          EXPECT_EQ(window.read(channel.fields[i]), column);
          window.type(channel.fields[i], "new " + column);
        }
        if (channel.box) window.click(channel.box);
        window.click("cmdFinish");
      };
      compose(channel.makeComposer, {ComposerMode::editAuto, type, 46142}, edit);
      EXPECT_EQ(fieldsOfRow(), expected + "\n");
      screen.expectQuestion(
          "Are you sure you want to refresh this comment?  This will replace the existing text.",
          message_style::batchNotice, true);
      compose(channel.makeComposer, {ComposerMode::editAuto}, [](WindowInUse& window) {
        window.click("cmdRefreshComment");
        cancel(window);
      });
      EXPECT_THAT(column("Memo"), HasSubstr("Please file your return."));
      EXPECT_EQ(fieldsOfRow(), expected + "\n");
    }
    execute("UPDATE ClientNotification SET NotificationSent = 1");
    compose(channel.makeComposer, {ComposerMode::editAuto}, [&](WindowInUse& window) {
      std::vector<const char*> locked{"rtbText", "chkAddAddress", "cmdFinish"};
      locked.insert(locked.end(), channel.fields.begin(), channel.fields.end());
      for (const char* name : locked) EXPECT_FALSE(window.canUse(name)) << name;
      EXPECT_TRUE(!channel.box || window.canUse(channel.box) != channel.isBoxLocked);
      cancel(window);
    });
  }
}

constexpr const char* lossQuestion =
    "This notification is not in the database any more.  Do you want to close it and lose what you "
    "have entered?";

TEST_F(ChannelTest, WindowsEndAsTheModeAndTheChannelSay) {
  using enum ComposerMode;
  enum class Act { finish, cancel, close, finishLost };
  struct Sending {
    Make makeComposer;
    notifyType channel;
    const char* document;
    bool sendsNow;                                                    ///< in notifyNow
    const char *finishCaption = "Finish", *cancelCaption = "Cancel";  ///< of a send at once
  };
  const Sending sendings[] = {
      {email, nt_Email, nullptr, true},
      {fax, nt_Fax, "drFax", true},
      {letter, nt_Letter, "drLetter", true},
      {phone, nt_Phone, nullptr, false, "Call completed", "No answer, call again later!"}};
  for (const Sending& sending : sendings) {
    const auto& [makeComposer, channel, document, sendsNow, captionOfFinish, captionOfCancel] =
        sending;
    for (int i = 0; i < 20; ++i) {
      const auto mode = static_cast<ComposerMode>(i / 4 + 1);
      const auto act = static_cast<Act>(i % 4);
      if (mode == blankSend && !document) continue;
      SCOPED_TRACE(testing::Message() << channel << ", mode " << i / 4 + 1 << ", act " << i % 4);
      const auto composer = makeComposer();
      addRowOf(channel);
      execute("UPDATE Schedule SET notifyType = 0");
      const std::size_t before = errors.tags().size();
      mailProgram.calls.clear();
      const bool isAtOnce = mode != editAuto && mode != newAuto;
      const bool isSent = act == Act::finish && isAtOnce && (sendsNow || mode == sendAuto);
      if (isSent && document) {
        screen.expectReport(document, [&](ReportInUse& shown) {
          EXPECT_FALSE(composer->isVisible());
          EXPECT_THAT(logged("isCompanyClient"), testing::ElementsAre(std::to_string(company)));
          EXPECT_THAT(notification(composer->notifyID(), "Memo"), HasSubstr("Soon"));
          shown.close();
          EXPECT_FALSE(composer->isLoaded());
        });
      }
      const Result result = use(*composer, {mode}, [&](WindowInUse& window) {
        EXPECT_EQ(window.sees("txtNotificationField"), !isAtOnce);
        EXPECT_EQ(window.read("cmdFinish"), isAtOnce ? sending.finishCaption : "Finish");
        EXPECT_EQ(window.read("cmdCancel"), isAtOnce ? sending.cancelCaption : "Cancel");
        window.type("rtbText", "Soon");
        if (act == Act::finishLost) {
          execute("DELETE FROM ClientNotification");
          screen.expectQuestion(lossQuestion, message_style::notice, false);
          window.click("cmdFinish");
          screen.expectQuestion(lossQuestion, message_style::notice, true);
        }
        calls.reset();
        calls.record(true);
        act == Act::close ? window.closeBox()
                          : window.click(act == Act::cancel ? "cmdCancel" : "cmdFinish");
      });
      EXPECT_EQ(result, (Result{act == Act::cancel || act == Act::finishLost, isSent}));
      const bool isGone = mode == notifyNow || mode == blankSend || act == Act::finishLost ||
                          (mode == newAuto && act == Act::cancel);
      const std::string kept = notification(composer->notifyID(), "Memo, NotificationSent");
      EXPECT_EQ(kept.ends_with("|0|\n"), !isGone) << kept;
      EXPECT_EQ(kept.find("Soon") != std::string::npos, !isGone && act == Act::finish) << kept;
      EXPECT_EQ(channelBits(), std::to_string(mode == newAuto && act == Act::finish ? channel : 0));
      const std::vector<std::string> tags(errors.tags().begin() + before, errors.tags().end());
      EXPECT_EQ(std::ranges::count(tags, "Morvane.exe-modNotifyClients-changeNotificationToSent"),
                mode == notifyNow && isSent);
      EXPECT_EQ(std::ranges::count(mailProgram.calls, "send="), isSent && channel == nt_Email);
    }
  }
  EXPECT_EQ(screen.pointer(), Pointer::standard);
}

TEST_F(ChannelTest, RowThatCannotBeLookedForCountsAsThere) {
  for (int failed = 1; failed <= 8; ++failed) {
    SCOPED_TRACE(failed);
    const auto composer = letter();
    addRowOf(nt_Letter);
    use(*composer, {ComposerMode::editAuto}, [&](WindowInUse& window) {
      window.type("rtbText", "Soon");
      errors.answerRest(error_choice::next, 9);
      calls.reset();
      calls.failAt(failed);
      window.click("cmdFinish");
      EXPECT_EQ(calls.failures(), 1);
    });
    EXPECT_THAT(notification(composer->notifyID(), "ClientNotificationID"), HasSubstr("|"));
  }
}

TEST_F(ChannelTest, ABlankFaxIsSavedBeforeItsKeyIsRead) {
  calls.record(true);
  compose(fax, {ComposerMode::blankSend}, cancel);
  EXPECT_LT(callNumber("saveNewRecord", 1), callNumber("getFieldValue ClientNotificationID", 1));
}

void fillChannelOffice(TableRows rows) {
  ComposerOffice{rows};
  rows.addRow("AccountantFirmInfo", {{"CompanyName", "Fisher & Lind"}});
  rows.linkDefaultContact(
      rows.addRow("Contacts", {{"DisplayName", "Cara"}, {"BusinessPhone_Fax", "555-0121"}}), 1);
}

TEST_F(ChannelTest, BlankSendsDoWhatHostsKnow) {
  const auto send = [](const char* name, Make makeComposer, Id companyID, Id contactID) {
    return WalkedOperation{name, [=](TestHost& host) {
                             const auto composer = makeComposer();
                             if (!host.database.isClosed)
                               host.screen.expectWindow(composer->name(), cancel);
                             auto& blank = dynamic_cast<DocumentComposer&>(*composer);
                             blank.InitializeBlankSend(remittanceNotification, companyID, contactID,
                                                       Appointments);
                             return std::string(composer->cancelFlag() ? "shown" : "");
                           }};
  };
  const WalkedOperation sends[] = {send("fax to company", fax, 1, noId),
                                   send("fax to contact", fax, noId, 1),
                                   send("letter", letter, 1, 1)};
  for (const WalkedOperation& each : sends) walkOperation(each, {fillChannelOffice});
  expectStatements(sends, fillChannelOffice, AUTONOTIFY_TEST_FOLDER "blank_sends.txt");
}

TEST_F(ChannelTest, ABlankLetterThatDoesNotComeUpDeletesNoOtherRow) {
  frmSendNotificationWizardLetter composer;
  screen.expectWindow(composer.name(), cancel);
  calls.record(true);
  openComposer(composer, {ComposerMode::editAuto}, row);
  EXPECT_LT(callNumber("getFieldValue Memo", 1), callNumber("getFieldValue CompanyIDNum", 1));
  closeDatabase();
  openComposer(composer, {ComposerMode::blankSend}, row);
  database.isClosed = false;
  composer.unload();
  EXPECT_TRUE(rowExists());
}

}  // namespace
}  // namespace autonotify::test
