#include "contacts/modContactSummaries.h"

#include "contacts/address_records.h"
#include "contacts/modDefaultContact.h"
#include "platform/richtext/RichText.h"
#include "platform/richtext/rich_text_edit.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

constexpr const char* noDefaultComment = "This company has no default contact.";

/// The contact lines of a block stand below an empty block, so they begin with a line end.
std::string summaryOf(const AddressRecord& record) {
  AddressRecord lines = record;
  lines[AddressField::personName].clear();
  CharacterFormat bold;
  bold.bold = true;
  RichText summary = richTextOf(record[AddressField::personName], bold);
  append(summary, richTextOf(createAddressWithContactInfo(lines, false, false)));
  return writeRichText(summary);
}

void saveSummary(Step& step, Id companyId, const std::string& summary) {
  withRow(step,
          "SELECT CompaniesNotes.* FROM CompaniesNotes WHERE CompaniesNotes.CompanyNum=", companyId,
          keysetUpdate, [&](RecordsetHandle handle) {
            writeField(step, handle, "ContactNotes", [&] { return summary; });
          });
}

}  // namespace

void saveContactBusinessRTF(Id contactID, Id companyID) {
  procedure("Morvane.exe-modContactSummaries-saveContactBusinessRTF", [&](Step& step) {
    if (contactID < 0 || companyID < 0 || !isDatabaseOpen(step)) return;
    AddressRecord record;
    readBusinessAddress(step, {.contactId = contactID}, companyID, {.phones = true, .email = true},
                        false, record);
    if (record.fields != AddressRecord{}.fields) saveSummary(step, companyID, summaryOf(record));
  });
}

void saveContactBusinessRTFForAllCompanies(Id contactID) {
  procedure("Morvane.exe-modContactSummaries-saveContactBusinessRTFForAllCompanies",
            [&](Step& step) {
              if (contactID < 0 || !isDatabaseOpen(step)) return;
              const std::string sql =
                  "SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.ContactIDNum=" +
                  std::to_string(contactID) +
                  " AND ContactLinks.DefaultContact=True AND Not ContactLinks.CompanyNum Is Null;";
              forEachRow(step, sql, keysetRead, [&](RecordsetHandle handle) {
                saveCompanyContactRTF(readId(step, handle, "CompanyNum"));
                return true;
              });
            });
}

void saveCompanyContactRTF(Id companyID) {
  procedure("Morvane.exe-modContactSummaries-saveCompanyContactRTF", [&](Step& step) {
    if (companyID < 0 || !isDatabaseOpen(step)) return;
    const Id contact = checkForDefaultContact(companyID, noId);
    if (contact < 0) {
      saveNoDefaultComment(companyID);
    } else {
      saveContactBusinessRTF(contact, companyID);
    }
  });
}

void saveNoDefaultComment(Id companyID) {
  procedure("Morvane.exe-modContactSummaries-saveNoDefaultComment", [&](Step& step) {
    if (companyID < 0 || !isDatabaseOpen(step)) return;
    saveSummary(step, companyID, writeRichText(richTextOf(noDefaultComment)));
  });
}

}  // namespace autonotify
