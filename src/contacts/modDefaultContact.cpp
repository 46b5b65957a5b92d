#include "contacts/modDefaultContact.h"

#include <array>
#include <optional>
#include <string>

#include "contract/recordsets.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

std::string linksStatement(Id companyId, const char* condition) {
  return "SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.CompanyNum=" +
         std::to_string(companyId) + condition + ";";
}
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

std::string firstText(Step& step, RecordsetHandle handle, const InfoColumn& column) {
  std::string text;
  for (const char* name : column.contact) {
    if (name && text.empty()) text = readText(step, handle, name);
  }
  return text;
}

/// Empty texts without a contact; nothing when the contact's row could not be read.
std::optional<ContactInfo> readContactInfo(Step& step, Id contactId) {
  if (contactId < 0) return ContactInfo{};
  std::optional<ContactInfo> info;
  withRow(step, "SELECT Contacts.* FROM Contacts WHERE Contacts.ContactID=", contactId, keysetRead,
          [&](RecordsetHandle handle) {
            info.emplace();
            for (std::size_t i = 0; i < info->size(); ++i)
              (*info)[i] = firstText(step, handle, infoColumns[i]);
          });
  return info;
}

/// False when the contact is not linked to the company, or its link could not be written.
bool setDefault(Step& step, Id companyId, Id contactId) {
  bool isSet = false;
  withFirstRow(step, linksStatement(companyId, ""), keysetUpdate, [&](RecordsetHandle handle) {
    const bool isLinked = step.value(
        false, [&] { return findRecord(handle, "ContactIDNum", std::to_string(contactId)); });
    if (!isLinked) return;
    step.run([&] {
      updateField(handle, "DefaultContact", "True");
      isSet = true;
    });
  });
  return isSet;
}

/// Clears all defaults of the company but those of `keptContactId`. A link whose contact cannot be
/// read stays.
void clearDefaults(Step& step, Id companyId, Id keptContactId) {
  forEachRow(step, linksStatement(companyId, isDefault), keysetUpdate, [&](RecordsetHandle handle) {
    const Id contactId = readId(step, handle, "ContactIDNum");
    if (contactId >= 0 && contactId != keptContactId)
      writeField(step, handle, "DefaultContact", [] { return "0"; });
    return true;
  });
}

}  // namespace

Id checkForDefaultContact(Id companyID, Id exceptContactID) {
  return procedure("Morvane.exe-modDefaultContact-checkForDefaultContact", noId,
                   [&](Step& step, Id& result) {
                     if (companyID < 0 || !isDatabaseOpen(step)) return;
                     forEachRow(step, linksStatement(companyID, isDefault), keysetRead,
                                [&](RecordsetHandle handle) {
                                  const Id contact = readId(step, handle, "ContactIDNum");
                                  if (contact != exceptContactID) result = contact;
                                  return result < 0;
                                });
                   });
}

bool setContactAsDefault(Id companyID, Id contactID) {
  return procedure("Morvane.exe-modDefaultContact-setContactAsDefault", false,
                   [&](Step& step, bool& result) {
                     if (companyID < 0 || contactID < 0 || !isDatabaseOpen(step)) return;
                     result = setDefault(step, companyID, contactID);
                     if (!result) return;
                     clearDefaults(step, companyID, contactID);
                     updateDefaultContactInfo(companyID);
                   });
}

void setNoContactAsDefault(Id companyID) {
  procedure("Morvane.exe-modDefaultContact-setNoContactAsDefault", [&](Step& step) {
    if (companyID < 0 || !isDatabaseOpen(step)) return;
    clearDefaults(step, companyID, noId);
    updateDefaultContactInfo(companyID);
  });
}

void updateDefaultContactInfo(Id companyID) {
  procedure("Morvane.exe-modDefaultContact-updateDefaultContactInfo", [&](Step& step) {
    if (companyID < 0 || !isDatabaseOpen(step)) return;
    const auto info = readContactInfo(step, checkForDefaultContact(companyID, noId));
    if (!info) return;
    withRow(step, "SELECT Companies.* FROM Companies WHERE Companies.CompanyID=", companyID,
            keysetUpdate, [&](RecordsetHandle handle) {
              writeField(step, handle, "PortalChangedFlag", [] { return "True"; });
              for (std::size_t i = 0; i < info->size(); ++i)
                writeField(step, handle, infoColumns[i].company, [&] { return (*info)[i]; });
            });
  });
}

}  // namespace autonotify
