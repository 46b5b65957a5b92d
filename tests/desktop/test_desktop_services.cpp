#include <gtest/gtest.h>

#include <QTest>
#include <QUrlQuery>
#include <QtWidgets>

#include "DialogErrorClass.h"
#include "DialogMsgbox.h"
#include "DialogProgress.h"
#include "MailProgramSender.h"
#include "host/mail/addresses.h"
#include "outcome_texts.h"
#include "support/error_number.h"

namespace autonotify::desktop {
namespace {

/// Acts in the message box that comes up next.
template <class Act>
void inNextBox(Act&& act) {
  QTimer::singleShot(0, [act] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    act(*box);
    if (box->isVisible()) box->reject();
  });
}

/// Presses the button of that text, or the escape key for none.
void answerBox(QMessageBox& box, const QString& text) {
  if (text.isEmpty()) return QTest::keyClick(&box, Qt::Key_Escape);
  for (QAbstractButton* button : box.buttons()) {
    if (button->text().remove('&') == text) return QTest::mouseClick(button, Qt::LeftButton);
  }
  ADD_FAILURE() << "no button " << text.toStdString();
}

TEST(OutcomeTexts, NameTheClientWhateverItIsCalledAndWhateverCameOfIt) {
  host::SendOutcome outcome{.detail = "why"};
  outcome.about.emplace().client = "%2 & %1";
  for (int result = 0; result <= static_cast<int>(host::SendResult::notThere); ++result) {
    outcome.result = static_cast<host::SendResult>(result);
    EXPECT_FALSE(textOf(outcome).isEmpty()) << result;
  }
  outcome.result = host::SendResult::failed;
  EXPECT_EQ(textOf(outcome), "The email to %2 & %1 was not sent: why");
}

TEST(ErrorDialog, GivesTheChoiceOfTheButton) {
  const std::pair<const char*, int> cases[] = {{"Continue", error_choice::next},
                                               {"Try Again", error_choice::quit},
                                               {"Leave", error_choice::leave},
                                               {"", error_choice::leave}};
  for (const auto& [button, choice] : cases) {
    DialogErrorClass errors;
    errors.enterProcedure("Morvane.exe-modX-y");
    errors.recordError(PlatformError(13, "Type mismatch\nStatement: SELECT 1;", "database"));
    inNextBox([button = button](QMessageBox& box) {
      EXPECT_EQ(box.text(), "Type mismatch");
      EXPECT_TRUE(box.detailedText().contains("Morvane.exe-modX-y"));
      answerBox(box, button);
    });
    errors.showErrorDialog();
    EXPECT_EQ(errors.getErrorChoice(), choice) << button;
    errors.leaveProcedure();
  }
}

TEST(Progress, IsShownUntilThePersonHasHadEnough) {
  DialogProgress progress;
  progress.put_text("Please wait ...");
  progress.StartProgress = [&] {
    progress.put_maximum(3);
    auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), "Client Notifications");
    progress.put_value(1);
    EXPECT_EQ(dialog->labelText() + QString::number(dialog->value()), "Please wait ...1");
    EXPECT_EQ(dialog->maximum(), 3);
    QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(test::errorOf([&] { progress.put_value(2); }), ProgressDialog::cancelled);
    progress.close();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  };
  progress.show();
  DialogErrorClass errors;
  errors.recordError(PlatformError(ProgressDialog::cancelled, "The work was cancelled"));
  errors.showErrorDialog();
  EXPECT_EQ(errors.getErrorChoice(), error_choice::leave);
  EXPECT_TRUE(errors.recorded().empty());
}

TEST(MessageBox, LooksAsItsStyleSays) {
  const std::pair<int, QMessageBox::Icon> cases[] = {
      {message_style::notice, QMessageBox::Information},
      {message_style::warning, QMessageBox::Warning},
      {message_style::reportError, QMessageBox::Critical},
      {99, QMessageBox::Information}};
  DialogMsgbox messages;
  for (const auto& [style, icon] : cases) {
    inNextBox([style = style, icon = icon](QMessageBox& box) {
      EXPECT_EQ(box.icon(), icon) << style;
      EXPECT_EQ(box.text(), "<b>Fees & more</b>");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    });
    messages.showMessage("<b>Fees & more</b>", style, nullptr, 0, 0, 101, 0, "", 0);
  }
  const std::pair<const char*, int> answers[] = {{"Yes", 0}, {"No", 1}, {"", 1}};
  for (const auto& [button, answer] : answers) {
    inNextBox([button = button](QMessageBox& box) { answerBox(box, button); });
    EXPECT_EQ(messages.askQuestion("Sure?", 1, nullptr, 0, 0, 101, 0, "", 0), answer) << button;
  }
}

TEST(MailProgram, GetsTheWholeMessageInOneAddress) {
  MailProgramSender sender;
  sender.put_to("Zo\xC3\xAB Roy <zoe@x.example>; b&c@x.example");
  sender.put_bcc("d@x.example");
  sender.put_subject("Fees & \xC3\xA9t\xC3\xA9?\r\nBcc: evil@x.example");
  sender.put_body("One #1 = 100%\nTwo");
  const QUrl url = sender.address();
  ASSERT_TRUE(url.isValid());
  EXPECT_EQ(url.toEncoded(QUrl::RemoveQuery), "mailto:zoe@x.example,b%26c@x.example");
  const QUrlQuery query(url);
  const auto item = [&](const char* name) {
    return query.queryItemValue(name, QUrl::FullyDecoded).toStdString();
  };
  EXPECT_EQ(query.queryItems().size(), 3);
  EXPECT_EQ(item("bcc"), "d@x.example");
  EXPECT_EQ(item("subject"), "Fees & \xC3\xA9t\xC3\xA9? Bcc: evil@x.example");
  EXPECT_EQ(item("body"), "One #1 = 100%\r\nTwo");

  sender.put_to("nobody");
  EXPECT_THROW(sender.address(), host::MailError);
  EXPECT_FALSE(sender.send());
  EXPECT_FALSE(sender.getLastError().empty());
}

}  // namespace
}  // namespace autonotify::desktop
