#pragma once

#include <string>

#include "contacts/modDatabaseFunctions.h"
#include "platform/controls/ComboBox.h"

namespace autonotify::test {

/// Fills the combo box for a client; with `select` the likeliest text is put in place.
using Fill = void (*)(Id client, ComboBox& combo, bool select);

// The members that take other arguments.

inline void companyEmails(Id client, ComboBox& combo, bool select) {
  populateCompanyAndContactEmailAddressesInCombo(client, combo, true, select);
}
inline void contactEmails(Id client, ComboBox& combo, bool select) {
  populateContactEmailAddressesInCombo(client, combo, false, select);
}
inline void firmFaxes(Id, ComboBox& combo, bool) {
  populateAccountingFirmsAndStaffFaxNumbersInCombo(combo);
}

struct NamedFill {
  const char* name;
  bool isOfCompany;
  Fill fill;
};
inline constexpr NamedFill fills[] = {
    {"companyEmails", true, companyEmails},
    {"contactEmails", false, contactEmails},
    {"companyFaxes", true, populateCompanyAndContactFaxNumbersInCombo},
    {"contactFaxes", false, populateContactFaxNumbersInCombo},
    {"firmFaxes", false, firmFaxes},
    {"companyPhones", true, populateCompanyAndContactPhoneNumbersInCombo},
    {"contactPhones", false, populateContactPhoneNumbersInCombo},
    {"faxRecipients", true, populateCompanyAndContactFaxRecipientInCombo},
    {"faxRecipient", false, populateContactFaxRecipientInCombo},
    {"companyNames", true, populateCompanyContactNamesInCombo},
    {"contactNames", false, populateContactContactNamesInCombo},
};

/// What is filled in for "old", and behind it the text put in place, marked; a bar behind each.
inline std::string filled(Fill fill, Id client, bool select = true) {
  ComboBox combo;
  combo.addItem("old");
  fill(client, combo, select);
  std::string list;
  for (const auto& entry : combo.entries()) list += entry.text + "|";
  return list + (combo.text().empty() ? "" : "-> " + combo.text() + "|");
}

}  // namespace autonotify::test
