#include "wizards/frmSendNotificationWizardFax.h"

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contacts/modDatabaseFunctions.h"
#include "contract/windows.h"
#include "wizards/blank_fax.h"

namespace autonotify {
namespace {

constexpr OtherTag faxTags[] = {
    {"InitializeNewAutoNotify", "frmSendNotificationWizardFax-InitializeEditAutoNotify"},
    {"cmdRefreshComment_Click", "frmSendNotificationWizardfax-cmdRefreshComment_Click"}};

FaxTexts textsOf(const FieldTexts& field, const std::string& memo) {
  return {field[0], field[1], field[2], field[3], field[4], field[5], memo};
}

constexpr DocumentChannel faxChannel{
    .composer = {
        .channel = nt_Fax,
        .formName = "frmSendNotificationWizardFax",
        .caption = "Send Notification (Fax)",
        .addressCaption = "Insert Client Business Address",
        .addsRow = AddsRow::always,
        .confirmationStart = "This client will be notified of their upcoming ",
        .confirmationEnd = " by fax on ",
        .asksClientList = true,
        .addressHasDate = false,
        .editForSchedule =
            [](Id id, const FieldTexts& field, const std::string& memo) {
              editFaxNotification(id, textsOf(field, memo));
            },
        .editForItem =
            [](ItemKind kind, Id id, const FieldTexts& field, const std::string& memo) {
              editApptFaxNotification(kind, id, textsOf(field, memo));
            },
        .otherTags = faxTags,
    },
    .fillBlankRow = fillBlankFax,
};

}  // namespace

frmSendNotificationWizardFax::frmSendNotificationWizardFax() : DocumentComposer(faxChannel) {
  bindFields({&txtTo, &txtFrom, &cboFromFaxNumber, &cboToFaxNumber, &txtPages, &txtSubject});
  // Side by side, the person before the firm.
  const std::initializer_list<Control*> fields = {
      &txtTo, &cboToFaxNumber, &txtFrom, &cboFromFaxNumber, &txtSubject, &txtPages};
  orderFirst({&rtbText, &chkAddAddress, &chkUseLetterhead, &notificationDate.txtNotificationField,
              &cmdRefreshComment});
  orderFirst(fields);
  for (Control* field : fields) markFocus(*field, name());
  for (TextBox* field : {&txtFrom, &txtPages, &txtSubject}) passKeys(*field, name());
}

/// The fields take their texts from the row afterwards, so that no default is chosen here.
void frmSendNotificationWizardFax::populateLists() {
  constexpr bool selectDefault = false;
  procedure(tag("populateFaxNumbers"), [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    populateAccountingFirmsAndStaffFaxNumbersInCombo(cboFromFaxNumber);
    if (companyID() >= 1) {
      populateCompanyAndContactFaxNumbersInCombo(companyID(), cboToFaxNumber, selectDefault);
    } else if (contactID() > 0) {
      populateContactFaxNumbersInCombo(contactID(), cboToFaxNumber, selectDefault);
    }
  });
}

}  // namespace autonotify
