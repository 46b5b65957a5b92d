#include "list/straight_email.h"

#include "contract/rows.h"
#include "contract/windows.h"
#include "list/frmTempRTBCtrl.h"
#include "wizards/email_sending.h"

namespace autonotify {
namespace {

constexpr const char* allNotifications = "SELECT ClientNotification.* FROM ClientNotification;";

std::string plainTextOf(Step& step, RichTextBox& box, const std::string& richText) {
  step.run([&] { box.setTextRTF(richText); });
  return step.value(std::string{}, &RichTextBox::text, box);
}

EmailMessage messageOf(const Row& notification, RichTextBox& box) {
  EmailMessage message;
  message.to = notification.text("Field1");
  message.cc = notification.text("Field2");
  message.bcc = notification.text("Field3");
  message.subject = notification.text("Field4");
  message.body = plainTextOf(notification.step(), box, notification.text("Memo"));
  return message;
}

void sendThrough(Step& step, Id notification, RichTextBox& box) {
  std::unique_ptr<EmailSender> sender;
  step.assign(sender, createHostObject<EmailSender>);
  const Row row(step, step.value(noRecordset, openRecordset, allNotifications, keysetRead));
  const bool found =
      step.holds(findRecord, row.handle(), "ClientNotificationID", std::to_string(notification));
  if (found && sender) sendEmail(step, *sender, messageOf(row, box));
  row.close();
}

}  // namespace

void sendStraight(Step& step, Id notification) {
  withWindow<frmTempRTBCtrl>(step, [&](frmTempRTBCtrl& holder) {
    yieldToHost(step, 2);
    sendThrough(step, notification, holder.rtbTemp);
  });
  yieldToHost(step, 2);
}

}  // namespace autonotify
