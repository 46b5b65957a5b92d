#include "contacts/modDefaultContact.h"

#include <array>
#include <optional>
#include <string>

#include "contract/rows.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modDefaultContact", name>;

std::string linksStatement(Id companyId, const char* condition) {
  return "SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.CompanyNum=" +
         std::to_string(companyId) + condition + ";";
}
constexpr const char* contactById = "SELECT Contacts.* FROM Contacts WHERE Contacts.ContactID=";
constexpr const char* companyById = "SELECT Companies.* FROM Companies WHERE Companies.CompanyID=";
constexpr const char* isDefault = " AND ContactLinks.DefaultContact=True";

/// A column of the company and the contact's columns behind it, the likeliest first.
struct InfoColumn {
  const char* company;
  std::array<const char*, 2> contact;
};
constexpr InfoColumn infoColumns[] = {
    {"DefaultContactName", {"DisplayName", nullptr}},
    {"DefaultContactPhoneNumber", {"BusinessPhone_Main", "HomePhone_Main"}},
    {"DefaultContactFaxNumber", {"BusinessPhone_Fax", "HomePhone_Fax"}},
    {"DefaultContactEmail", {"BusinessEmail", "PersonalEmail"}},
};
using ContactInfo = std::array<std::string, std::size(infoColumns)>;

std::string firstText(const Row& contact, const InfoColumn& column) {
  std::string text;
  for (const char* name : column.contact) {
    if (name && text.empty()) text = contact.text(name);
  }
  return text;
}

/// Empty texts without a contact; nothing when the contact's row could not be read.
std::optional<ContactInfo> readContactInfo(Step& step, Id contactId) {
  if (contactId < 0) return ContactInfo{};
  std::optional<ContactInfo> info;
  if (const Rows contact(step, contactById, contactId, keysetRead); contact) {
    info.emplace();
    for (std::size_t i = 0; i < info->size(); ++i) (*info)[i] = firstText(contact, infoColumns[i]);
  }
  return info;
}

/// False when the contact is not linked to the company, or its link could not be written.
bool setDefault(Step& step, Id companyId, Id contactId) {
  const Rows links(step, linksStatement(companyId, ""), keysetUpdate);
  if (!links) return false;
  if (!step.holds(findRecord, links.handle(), "ContactIDNum", std::to_string(contactId)))
    return false;
  return step.holds([&] {
    updateField(links.handle(), "DefaultContact", "True");
    return true;
  });
}

/// Clears all defaults of the company but those of `keptContactId`. A link whose contact cannot be
/// read stays.
void clearDefaults(Step& step, Id companyId, Id keptContactId) {
  for (const Row& link : Rows(step, linksStatement(companyId, isDefault), keysetUpdate)) {
    const Id contactId = link.id("ContactIDNum");
    if (contactId >= 0 && contactId != keptContactId) link.write("DefaultContact", "0");
  }
}

}  // namespace

Id checkForDefaultContact(Id companyID, Id exceptContactID) {
  return procedure(tagOf<"checkForDefaultContact">, noId, [&](Step& step, Id& result) {
    if (companyID < 0 || !isDatabaseOpen(step)) return;
    for (const Row& link : Rows(step, linksStatement(companyID, isDefault), keysetRead)) {
      const Id contact = link.id("ContactIDNum");
      if (contact != exceptContactID) result = contact;
      if (result >= 0) break;
    }
  });
}

bool setContactAsDefault(Id companyID, Id contactID) {
  return procedure(tagOf<"setContactAsDefault">, false, [&](Step& step, bool& result) {
    if (companyID < 0 || contactID < 0 || !isDatabaseOpen(step)) return;
    result = setDefault(step, companyID, contactID);
    if (!result) return;
    clearDefaults(step, companyID, contactID);
    updateDefaultContactInfo(companyID);
  });
}

void setNoContactAsDefault(Id companyID) {
  procedure(tagOf<"setNoContactAsDefault">, [&](Step& step) {
    if (companyID < 0 || !isDatabaseOpen(step)) return;
    clearDefaults(step, companyID, noId);
    updateDefaultContactInfo(companyID);
  });
}

void updateDefaultContactInfo(Id companyID) {
  procedure(tagOf<"updateDefaultContactInfo">, [&](Step& step) {
    if (companyID < 0 || !isDatabaseOpen(step)) return;
    const auto info = readContactInfo(step, checkForDefaultContact(companyID, noId));
    if (!info) return;
    const Rows company(step, companyById, companyID, keysetUpdate);
    if (!company) return;
    company.write("PortalChangedFlag", "True");
    for (std::size_t i = 0; i < info->size(); ++i)
      company.write(infoColumns[i].company, (*info)[i]);
  });
}

}  // namespace autonotify
