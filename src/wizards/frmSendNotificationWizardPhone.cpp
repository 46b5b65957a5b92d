#include "wizards/frmSendNotificationWizardPhone.h"

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contacts/modDatabaseFunctions.h"
#include "contract/windows.h"

namespace autonotify {
namespace {

constexpr OtherTag phoneTags[] = {
    {"cmdRefreshComment_Click", "frmSendNotificationWizardphone-cmdRefreshComment_Click"}};

constexpr ComposerChannel phoneChannel{
    .channel = nt_Phone,
    .formName = "frmSendNotificationWizardPhone",
    .caption = "Send Notification (Phone)",
    .addressCaption = "Insert Client Business Address And Date",
    .addsRow = AddsRow::never,
    .confirmationStart = "You will be reminded to call this client about their upcoming ",
    .confirmationEnd = " on ",
    .asksClientList = false,
    .addressHasDate = true,
    .editForSchedule =
        [](Id id, const FieldTexts& field, const std::string& memo) {
          editPhoneNotification(id, {field[0], field[1], field[2], memo});
        },
    .editForItem =
        [](ItemKind kind, Id id, const FieldTexts& field, const std::string& memo) {
          editApptPhoneNotification(kind, id, {field[0], field[1], field[2], memo});
        },
    .finishAtOnce = "Call completed",
    .cancelAtOnce = "No answer, call again later!",
    .otherTags = phoneTags,
};

}  // namespace

frmSendNotificationWizardPhone::frmSendNotificationWizardPhone()
    : NotificationComposer(phoneChannel) {
  bindFields({&txtToCall, &cboPhoneNumber, &txtAvailableTimes});
  const std::initializer_list<Control*> fields = {&txtToCall, &cboPhoneNumber, &txtAvailableTimes};
  orderFirst(fields);
  for (Control* field : fields) markFocus(*field, name());
  for (TextBox* field : {&txtToCall, &txtAvailableTimes}) passKeys(*field, name());
}

/// The fields take their texts from the row afterwards, so that no default is chosen here.
void frmSendNotificationWizardPhone::populateLists() {
  procedure(tag("populatePhoneNumbers"), [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    if (companyID() >= 1) {
      populateCompanyAndContactPhoneNumbersInCombo(companyID(), cboPhoneNumber, false);
    } else if (contactID() > 0) {
      populateContactPhoneNumbersInCombo(contactID(), cboPhoneNumber, false);
    }
  });
}

void frmSendNotificationWizardPhone::finish(Step& step) {
  hideAndRepaint(step);
  if (mode() == ComposerMode::notifyNow) return;
  if (mode() != ComposerMode::sendAuto) return saveForLater(step);
  saveFields();
  noteSent();
}

}  // namespace autonotify
