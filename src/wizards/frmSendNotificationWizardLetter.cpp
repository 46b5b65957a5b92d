#include "wizards/frmSendNotificationWizardLetter.h"

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"

namespace autonotify {
namespace {

constexpr OtherTag letterTags[] = {
    {"cmdFinish_Click", "frmSendNotifi-cmdFinish_Click"},
    {"cmdCancel_Click", "frmSendNotifi-cmdCancel_Click"},
    {"chkAddAddress_Click", "frmSendNotifi-chkAddAddress_Click"},
    {"cmdRefreshComment_Click", "frmSendNotificationWizardletter-cmdRefreshComment_Click"}};

void fillBlankLetter(Step&, NewRow& row, const CompanyAndContactID& client) {
  row.set("CompanyIDNum", client.companyId);
  row.set("ContactIDNum", client.contactId);
  row.set("NotificationType", int{nt_Letter});
  row.set("NotificationDate", [] { return platformClock().today(); });
}

void editForSchedule(Id id, const FieldTexts&, const std::string& memo) {
  editLetterNotification(id, memo);
}

void editForItem(ItemKind kind, Id id, const FieldTexts&, const std::string& memo) {
  editApptLetterNotification(kind, id, memo);
}

constexpr DocumentChannel letterChannel{
    .composer =
        {
            .channel = nt_Letter,
            .formName = "frmSendNotificationWizardLetter",
            .caption = "Send Notification (Letter)",
            .addressCaption = "Insert Client Business Address",
            .addsRow = AddsRow::always,
            .confirmationStart = "This client will be notified of their upcoming ",
            .confirmationEnd = " by letter on ",
            .asksClientList = true,
            .addressHasDate = false,
            .editForSchedule = editForSchedule,
            .editForItem = editForItem,
            .readsTextFirst = true,
            .otherTags = letterTags,
        },
    .fillBlankRow = fillBlankLetter,
};

}  // namespace

frmSendNotificationWizardLetter::frmSendNotificationWizardLetter()
    : DocumentComposer(letterChannel) {
  orderFirst({&rtbText, &chkAddAddress, &chkUseHeader, &notificationDate.txtNotificationField,
              &cmdRefreshComment});
}

}  // namespace autonotify
