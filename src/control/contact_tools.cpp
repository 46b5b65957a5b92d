#include "control/contact_tools.h"

#include <algorithm>

#include "contacts/modAddressFormatting.h"
#include "contacts/modContactSummaries.h"
#include "contacts/modDatabaseFunctions.h"
#include "contacts/modDefaultContact.h"
#include "contract/procedure.h"
#include "contract/tags.h"
#include "platform/controls/ComboBox.h"

namespace autonotify {
namespace {

struct RecipientMember {
  enumAutoNotifyClientType clientType;
  RecipientKind kind;
  void (*populate)(Id client, ComboBox& combo);
};

using enum RecipientKind;

/// The members that offer with the likeliest one chosen; the firm stands for no client.
constexpr RecipientMember members[] = {
    {enumAutoNotifyCompany, email,
     [](Id client, ComboBox& combo) {
       populateCompanyAndContactEmailAddressesInCombo(client, combo, true, true);
     }},
    {enumAutoNotifyCompany, fax,
     [](Id client, ComboBox& combo) {
       populateCompanyAndContactFaxNumbersInCombo(client, combo, true);
     }},
    {enumAutoNotifyCompany, phone,
     [](Id client, ComboBox& combo) {
       populateCompanyAndContactPhoneNumbersInCombo(client, combo, true);
     }},
    {enumAutoNotifyCompany, name,
     [](Id client, ComboBox& combo) {
       populateCompanyAndContactFaxRecipientInCombo(client, combo, true);
     }},
    {enumAutoNotifyContact, email,
     [](Id client, ComboBox& combo) {
       populateContactEmailAddressesInCombo(client, combo, true, true);
     }},
    {enumAutoNotifyContact, fax,
     [](Id client, ComboBox& combo) { populateContactFaxNumbersInCombo(client, combo, true); }},
    {enumAutoNotifyContact, phone,
     [](Id client, ComboBox& combo) { populateContactPhoneNumbersInCombo(client, combo, true); }},
    {enumAutoNotifyContact, name,
     [](Id client, ComboBox& combo) { populateContactContactNamesInCombo(client, combo, true); }},
    {enumAutoNotifyNone, fax,
     [](Id, ComboBox& combo) { populateAccountingFirmsAndStaffFaxNumbersInCombo(combo); }},
};

}  // namespace

std::string composeAddress(const AddressWish& wish) {
  const AddressParts parts{true, wish.phones, wish.email};
  bool includePerson = true;
  if (wish.clientType == enumAutoNotifyCompany)
    return createCompanyAddress(wish.id, noId, parts, includePerson, wish.asRTF);
  const AddressPerson person{.contactId = wish.id};
  if (wish.home) return createPersonalContactAddress(person, parts, wish.asRTF);
  return createBusinessContactAddress(person, wish.companyId, parts, true, wish.asRTF);
}

RecipientOffer listRecipients(enumAutoNotifyClientType clientType, Id clientId,
                              RecipientKind kind) {
  const auto member = std::ranges::find_if(members, [&](const RecipientMember& row) {
    return row.clientType == clientType && row.kind == kind;
  });
  RecipientOffer offer;
  if (member == std::end(members)) return offer;
  ComboBox combo;
  member->populate(clientId, combo);
  for (const ComboBox::Entry& entry : combo.entries()) offer.texts.push_back(entry.text);
  offer.likeliest = combo.listIndex();
  return offer;
}

bool setDefaultContact(Id companyID, Id contactID) {
  constexpr std::string_view tag = procedureTag<"clsNotificationTools", "setDefaultContact">;
  return procedure(tag, false, [&](Step&, bool& result) {
    if (contactID < 0) {
      setNoContactAsDefault(companyID);
      result = true;
    } else {
      result = setContactAsDefault(companyID, contactID);
    }
    if (result) saveCompanyContactRTF(companyID);
  });
}

}  // namespace autonotify
