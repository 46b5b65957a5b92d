#include "wizards/email_sending.h"

#include "contract/EmailSender.h"
#include "contract/windows.h"

namespace autonotify {
namespace {

std::string madeSafe(const std::string& text) {
  return toText(generalUtilities().textOrDefault(text, false));
}

void fill(Step& step, EmailSender& sender, const EmailMessage& message) {
  step.run([&] { sender.put_errorClass(references().errors); });
  step.run([&] { sender.put_MsgboxClass(&messageBox()); });
  step.run([&] { sender.put_LocaleReference(&locale()); });
  step.run([&] { sender.put_DatabaseReference(&database()); });
  step.run([&] { sender.put_workingFolder(workingFolder().getWorkingFolder()); });
  step.run([&] { sender.put_to(message.to); });
  step.run([&] { sender.put_cc(madeSafe(message.cc)); });
  step.run([&] { sender.put_bcc(madeSafe(message.bcc)); });
  step.run([&] { sender.put_subject(madeSafe(message.subject)); });
  step.run([&] { sender.put_body(madeSafe(message.body)); });
}

}  // namespace

bool sendEmail(Step& step, const EmailMessage& message) {
  std::unique_ptr<EmailSender> sender;
  step.run([&] { sender = createHostObject<EmailSender>(); });
  if (!sender) return false;
  fill(step, *sender, message);
  if (step.value(false, [&] { return sender->send(); })) return true;
  step.run([&] { showMessage(sender->getLastError(), message_style::notice); });
  return false;
}

}  // namespace autonotify
