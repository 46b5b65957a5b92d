#include "contacts/modContactSummaries.h"

#include "contacts/address_records.h"
#include "contacts/modDefaultContact.h"
#include "contract/rows.h"
#include "contract/tags.h"
#include "platform/richtext/RichText.h"
#include "platform/richtext/rich_text_edit.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modContactSummaries", name>;

constexpr const char* notesOfCompany =
    "SELECT CompaniesNotes.* FROM CompaniesNotes WHERE CompaniesNotes.CompanyNum=";
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
  const Rows notes(step, notesOfCompany, companyId, keysetUpdate);
  if (notes) notes.write("ContactNotes", summary);
}

}  // namespace

void saveContactBusinessRTF(Id contactID, Id companyID) {
  procedure(tagOf<"saveContactBusinessRTF">, [&](Step& step) {
    if (contactID < 0 || companyID < 0 || !isDatabaseOpen(step)) return;
    AddressRecord record;
    const AddressParts parts{.phones = true, .email = true};
    if (readBusinessAddress(step, {.contactId = contactID}, companyID, parts, false, record))
      saveSummary(step, companyID, summaryOf(record));
  });
}

void saveContactBusinessRTFForAllCompanies(Id contactID) {
  procedure(tagOf<"saveContactBusinessRTFForAllCompanies">, [&](Step& step) {
    if (contactID < 0 || !isDatabaseOpen(step)) return;
    const std::string sql =
        "SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.ContactIDNum=" +
        std::to_string(contactID) +
        " AND ContactLinks.DefaultContact=True AND Not ContactLinks.CompanyNum Is Null;";
    for (const Row& link : Rows(step, sql, keysetRead))
      saveCompanyContactRTF(link.id("CompanyNum"));
  });
}

void saveCompanyContactRTF(Id companyID) {
  procedure(tagOf<"saveCompanyContactRTF">, [&](Step& step) {
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
  procedure(tagOf<"saveNoDefaultComment">, [&](Step& step) {
    if (companyID < 0 || !isDatabaseOpen(step)) return;
    saveSummary(step, companyID, writeRichText(richTextOf(noDefaultComment)));
  });
}

}  // namespace autonotify
