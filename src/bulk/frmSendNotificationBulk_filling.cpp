#include "bulk/bulk_rows.h"
#include "bulk/default_recipients.h"
#include "bulk/frmSendNotificationBulk.h"
#include "bulk/short_abbreviations.h"
#include "contacts/modDatabaseFunctions.h"
#include "contract/rows.h"
#include "contract/windows.h"

// How the window is filled.

namespace autonotify {
namespace {

/// Who fills the lists for a client of one type.
struct ListFillers {
  void (*emails)(Id, ComboBox&, bool includeFirmAndStaff, bool selectDefault);
  void (*faxes)(Id, ComboBox&, bool selectDefault);
  void (*faxRecipients)(Id, ComboBox&, bool selectDefault);
  void (*names)(Id, ComboBox&, bool selectDefault);
  void (*phones)(Id, ComboBox&, bool selectDefault);
};
constexpr ListFillers ofContact{
    populateContactEmailAddressesInCombo, populateContactFaxNumbersInCombo,
    populateContactFaxRecipientInCombo, populateContactContactNamesInCombo,
    populateContactPhoneNumbersInCombo};
constexpr ListFillers ofCompany{
    populateCompanyAndContactEmailAddressesInCombo, populateCompanyAndContactFaxNumbersInCombo,
    populateCompanyAndContactFaxRecipientInCombo, populateCompanyContactNamesInCombo,
    populateCompanyAndContactPhoneNumbersInCombo};

std::string sentence(const std::string& client) {
  const std::string text = "This wizard will automatically schedule the automatic notifications";
  return text + (client.empty() ? "" : " for " + client) + ".";
}

void setUnlessEmpty(ComboBox& combo, const std::string& text) {
  if (!text.empty()) combo.setText(text);
}

}  // namespace

void frmSendNotificationBulk::Initialize(enumAutoNotifyClientType clientType, Id companyNum,
                                         Id contactNum) {
  procedure(tag("Initialize"), [&](Step& step) {
    step.run(styleForm, *this);
    cancelFlag = false;
    client_ = {clientType, companyNum, contactNum};
    if (!client_.isUsable()) return;
    choice = {};
    choice.channels[0] = true;
    step.assign(year_, [] { return locale().getCurrentYear(); });
  });
}

void frmSendNotificationBulk::showForm(bool& skipStep1) {
  procedure(tag("showForm"), [&](Step& step) {
    suppressesClicks_ = true;
    tickBoxes(step);
    setYears(year_);
    fillYears(step);
    if (client_.isContact()) skipStep1 = true;
    for (Button* button : {&cmdNext, &cmdBack}) button->setVisible(!client_.isContact());
    Label2.setCaption(sentence(clientName(step)));
    populateLists();
    populateDefaultValues();
    suppressesClicks_ = false;
    showStep(skipStep1 ? 2 : 1);
    tmrOrganizeControls.setEnabled(true);
    step.run(setPointer, Pointer::standard);
    step.run(autonotify::showModal, *this);
  });
}

void frmSendNotificationBulk::tickBoxes(Step& step) {
  for (std::size_t i = 0; i < chkNotifyType.size(); ++i) {
    chkNotifyType[i].setValue(choice.channels[i]);
    enableFields(i);
  }
  if (!isDatabaseOpen(step)) return;
  step.run(setPointer, Pointer::busy);
  for (std::size_t i = 0; i < bulkRows.size(); ++i)
    chkAutoNotify[i].setValue(choice[bulkRows[i].tickedFor]);
}

void frmSendNotificationBulk::fillYears(Step& step) {
  step.run(&ComboBox::clear, cboYear);
  for (int year = year_ - 3; year <= year_ + 1; ++year)
    addEntry(step, cboYear, std::to_string(year));
  chooseEntry(step, cboYear, presentYearEntry);
}

void frmSendNotificationBulk::setYears(std::int16_t year) {
  procedure(tag("setYears"), [&](Step& step) {
    year_ = year;
    for (Label& label : lblText) {
      const Id totalNum = step.value(noId, [&] { return toInteger(Value(label.tag())); });
      label.setCaption("Schedule all " + getShortAbbreviationNameFromTotalNum(totalNum, true) +
                       " Auto Notifications for " + std::to_string(year));
    }
  });
}

std::string frmSendNotificationBulk::clientName(Step& step) const {
  const auto contact = [&] { return clients().getContactDisplayName(client_.contactID); };
  const auto company = [&] { return clients().getCompanyDisplayName(client_.companyID); };
  if (client_.isContact()) return step.value(std::string{}, contact);
  if (!client_.isCompany() || !isDatabaseOpen(step)) return {};
  return step.value(std::string{}, company);
}

void frmSendNotificationBulk::populateLists() {
  constexpr bool includeFirmAndStaff = true;
  constexpr bool selectDefault = false;
  if (!client_.isContact() && !client_.isCompany()) return;
  const ListFillers& fill = client_.isContact() ? ofContact : ofCompany;
  const Id id = client_.id();
  for (ComboBox* combo : {&cboTo, &cboCc, &cboBcc})
    fill.emails(id, *combo, includeFirmAndStaff, selectDefault);
  fill.faxes(id, cboToFaxNumber, selectDefault);
  fill.faxRecipients(id, cboFaxRecipient, selectDefault);
  fill.names(id, cboPhoneName, selectDefault);
  fill.phones(id, cboPhoneNumber, selectDefault);
}

void frmSendNotificationBulk::populateDefaultValues() {
  procedure(tag("populateDefaultValues"), [&](Step& step) {
    if (client_.id() < 0 || !isDatabaseOpen(step)) return;
    const DefaultRecipients found = findDefaultRecipients(step, client_);
    setUnlessEmpty(cboTo, found.email);
    setUnlessEmpty(cboToFaxNumber, found.fax);
    setUnlessEmpty(cboFaxRecipient, found.faxName);
    setUnlessEmpty(cboPhoneName, found.phoneName);
    setUnlessEmpty(cboPhoneNumber, found.phone);
  });
}

}  // namespace autonotify
