#include "wizards/frmSendNotificationWizardEmail.h"

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contacts/modDatabaseFunctions.h"
#include "contract/windows.h"
#include "store/modNotifyClients.h"
#include "wizards/email_sending.h"

namespace autonotify {
namespace {

constexpr ComposerChannel emailChannel{
    .channel = nt_Email,
    .formName = "frmSendNotificationWizardEmail",
    .caption = "Send Notification (Email)",
    .addressCaption = "Insert Client Business Address And Date",
    .addsRow = AddsRow::unlessNewWithoutSchedule,
    .confirmationStart = "This client will be notified of their upcoming ",
    .confirmationEnd = " by email on ",
    .asksClientList = true,
    .addressHasDate = true,
    .editForSchedule =
        [](Id id, const FieldTexts& field, const std::string& memo) {
          editEmailNotification(id, {field[0], field[1], field[2], field[3], memo});
        },
    .editForItem =
        [](ItemKind kind, Id id, const FieldTexts& field, const std::string& memo) {
          editApptEmailNotification(kind, id, {field[0], field[1], field[2], field[3], memo});
        },
};

}  // namespace

frmSendNotificationWizardEmail::frmSendNotificationWizardEmail()
    : NotificationComposer(emailChannel) {
  bindFields({&cboTo, &cboCc, &cboBcc, &txtSubject});
  orderFirst({&cboTo, &cboCc, &cboBcc, &txtSubject});
  rtbHidden.setVisible(false);
  for (ComboBox* combo : {&cboTo, &cboCc, &cboBcc}) markFocus(*combo, name());
}

/// The fields take their texts from the row afterwards, so that no default is chosen here.
void frmSendNotificationWizardEmail::populateLists() {
  constexpr bool includeFirmAndStaff = true;
  constexpr bool selectDefault = false;
  procedure(tag("populateEmailAddresses"), [&](Step&) {
    if (companyID() >= 1) {
      populateCompanyAndContactEmailAddressesInCombo(companyID(), cboTo, includeFirmAndStaff,
                                                     selectDefault);
    } else if (contactID() > 0) {
      populateContactEmailAddressesInCombo(contactID(), cboTo, includeFirmAndStaff, selectDefault);
    } else {
      return;
    }
    cboCc.copyEntries(cboTo);
    cboBcc.copyEntries(cboTo);
  });
}

void frmSendNotificationWizardEmail::finish(Step& step) {
  if (mode() == ComposerMode::notifyNow || mode() == ComposerMode::sendAuto) {
    saveFields();
    if (!mayGo(step)) return;
    send(step);
  } else {
    saveForLater(step);
  }
  hideAndRepaint(step);
  yieldToHost(step, 4);
}

/// An address that is missing does not stop the send when the person says so.
bool frmSendNotificationWizardEmail::mayGo(Step& step) {
  if (!isEmpty(step, cboTo.text())) return true;
  const std::string question =
      "There is no email address entered for this notification.  Do you want to continue anyway?";
  const bool saidYes = step.holds(askQuestion, question, message_style::notice);
  if (saidYes && mode() == ComposerMode::notifyNow) yieldToHost(step, 2);
  return saidYes;
}

void frmSendNotificationWizardEmail::send(Step& step) {
  const EmailMessage message{cboTo.text(), cboCc.text(), cboBcc.text(), txtSubject.text(),
                             rtbText.text()};
  if (!sendEmail(step, message)) return;
  noteSent();
  if (mode() == ComposerMode::notifyNow) markSentNow(step, notifyID());
}

}  // namespace autonotify
