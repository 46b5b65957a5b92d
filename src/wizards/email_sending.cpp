#include "wizards/email_sending.h"

#include "contract/windows.h"

namespace autonotify {
namespace {

/// Hands over a service; one that is missing fails the statement.
template <class Service>
void lend(Step& step, EmailSender& sender, void (EmailSender::*put)(Service*),
          Service& (*service)()) {
  step.run([&] { (sender.*put)(&service()); });
}

void putSafely(Step& step, EmailSender& sender, void (EmailSender::*put)(const std::string&),
               const std::string& text) {
  step.run([&] { (sender.*put)(toText(generalUtilities().textOrDefault(text, false))); });
}

void fill(Step& step, EmailSender& sender, const EmailMessage& message) {
  step.run(&EmailSender::put_errorClass, sender, references().errors);
  lend(step, sender, &EmailSender::put_MsgboxClass, messageBox);
  lend(step, sender, &EmailSender::put_LocaleReference, locale);
  lend(step, sender, &EmailSender::put_DatabaseReference, database);
  step.run([&] { sender.put_workingFolder(workingFolder().getWorkingFolder()); });
  step.run(&EmailSender::put_to, sender, message.to);
  putSafely(step, sender, &EmailSender::put_cc, message.cc);
  putSafely(step, sender, &EmailSender::put_bcc, message.bcc);
  putSafely(step, sender, &EmailSender::put_subject, message.subject);
  putSafely(step, sender, &EmailSender::put_body, message.body);
}

}  // namespace

bool sendEmail(Step& step, const EmailMessage& message) {
  std::unique_ptr<EmailSender> sender;
  step.assign(sender, createHostObject<EmailSender>);
  return sender && sendEmail(step, *sender, message);
}

bool sendEmail(Step& step, EmailSender& sender, const EmailMessage& message) {
  fill(step, sender, message);
  if (step.holds(&EmailSender::send, sender)) return true;
  step.run([&] { showMessage(sender.getLastError(), message_style::notice); });
  return false;
}

}  // namespace autonotify
