#pragma once

#include "platform/Value.h"

// The lists of recipients that windows offer: every address, number or name that is known for a
// client, and the firm's own.
//
// Each member gathers texts in a fixed order without empty ones, has them cleaned by the host's
// ListCleaner (which drops what occurs twice), and fills the combo box anew. With `selectDefault`
// the likeliest one is put in place; where none of its candidates is known the field stays empty.
// With the database closed the combo box stays as it is. Failures are settled at the error dialog.
//
// The likeliest one, the first that is known:
//   email of a contact    at work, at home
//   email of a company    default contact at work, company, default contact at home
//   fax of a contact      at work, at home
//   fax of a company      default contact at work, company, default contact at home
//   phone of a contact    at work: main, cell, alternative; at home: the same; never a pager's or
//                         the spouse's
//   phone of a company    default contact at work, company, default contact at home
//   names of a contact    the first of the list
//   names of a company    the default contact

namespace autonotify {

class ComboBox;

void populateContactEmailAddressesInCombo(Id contactID, ComboBox& combo, bool includeFirmAndStaff,
                                          bool selectDefault);
void populateCompanyAndContactEmailAddressesInCombo(Id companyID, ComboBox& combo,
                                                    bool includeFirmAndStaff, bool selectDefault);

/// Each number has its label behind it, " <Business Fax>" or " <Home Fax>".
void populateContactFaxNumbersInCombo(Id contactID, ComboBox& combo, bool selectDefault);
void populateCompanyAndContactFaxNumbersInCombo(Id companyID, ComboBox& combo, bool selectDefault);
void populateAccountingFirmsAndStaffFaxNumbersInCombo(ComboBox& combo);

/// The contact's name alone.
void populateContactFaxRecipientInCombo(Id contactID, ComboBox& combo, bool selectFirst);
/// The company's name, then its contacts'.
void populateCompanyAndContactFaxRecipientInCombo(Id companyID, ComboBox& combo,
                                                  bool selectDefault);

/// The contact's own name and the spouse's.
void populateContactContactNamesInCombo(Id contactID, ComboBox& combo, bool selectDefault);
void populateCompanyContactNamesInCombo(Id companyID, ComboBox& combo, bool selectDefault);

/// Each number has its label behind it, such as " <Business Phone>".
void populateContactPhoneNumbersInCombo(Id contactID, ComboBox& combo, bool selectDefault);
void populateCompanyAndContactPhoneNumbersInCombo(Id companyID, ComboBox& combo,
                                                  bool selectDefault);

}  // namespace autonotify
