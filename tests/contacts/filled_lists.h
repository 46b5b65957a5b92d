#pragma once

#include <string>
#include <vector>

#include "contacts/modDatabaseFunctions.h"
#include "platform/controls/ComboBox.h"

namespace autonotify::test {

using List = std::vector<std::string>;
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

/// What is filled in for "old", and behind it the text put in place, marked.
inline List filled(Fill fill, Id client, bool select = true) {
  ComboBox combo;
  combo.addItem("old");
  fill(client, combo, select);
  List list;
  for (const auto& entry : combo.entries()) list.push_back(entry.text);
  if (!combo.text().empty()) list.push_back("-> " + combo.text());
  return list;
}

}  // namespace autonotify::test
