
#include "contacts/clsClientAddrBkCatTxt.h"
#include "contacts/filled_lists.h"
#include "contacts/modAddressFormatting.h"
#include "contacts/modContactSummaries.h"
#include "contacts/modDefaultContact.h"
#include "platform/controls/RichTextBox.h"
#include "support/fault_walk.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

constexpr DateTime day = DateTime::of(2026, 4, 5);
constexpr Id company = 1, al = 1, jo = 2;
constexpr AddressParts all{true, true, true};
constexpr AddressPerson contact{.contactId = jo}, staff{.employeeId = 1};
const HeadingParts greeted{day, true};

/// One company and its two contacts, of whom Al is the default.
void fillAddressBook(TableRows rows) {
  addAllTold(rows, "address_book.txt", "faults");
}

std::string written(TestHost& host) {
  return host.dump("SELECT * FROM ContactLinks") + host.dump("SELECT * FROM Companies") +
         host.dump("SELECT * FROM CompaniesNotes");
}

template <class Call>
WalkedOperation changes(const char* name, const char* text, const char* byDefault, Call call) {
  const auto run = [call, text] {
    RichTextBox box;
    box.setText(text);
    call(box);
    return box.text();
  };
  return gives(name, byDefault, run);
}

const char* const headed = " Jo\r\n\r\nHull\r\n\r\nx";

/// The operations, and each list that is filled.
std::vector<WalkedOperation> withLists(std::vector<WalkedOperation> operations) {
  for (const auto& [name, isOfCompany, fill] : fills)
    operations.push_back(gives(name, "old|", [fill = fill, client = isOfCompany ? company : jo] {
      return filled(fill, client);
    }));
  return operations;
}

const std::vector<WalkedOperation> operations = withLists({
    gives("companyAddress", "",
          [] {
            bool person = true;
            return createCompanyAddress(company, noId, all, person, true);
          }),
    gives("atWork", "",
          [] { return createBusinessContactAddress(contact, company, all, true, false); }),
    gives("staffAtWork", "",
          [] { return createBusinessContactAddress(staff, 7, all, true, false); }),
    gives("atHome", "", [] { return createPersonalContactAddress(contact, all, false); }),
    changes("heading", "", " ",
            [](RichTextBox& box) { insertBusinessAddress(box, company, greeted); }),
    changes("removal", headed, headed,
            [](RichTextBox& box) { removeContactPersonalAddress(box, jo, {}); }),
    gives("check", "-1", [] { return std::to_string(checkForDefaultContact(company, noId)); }),
    gives("setDefault", "0", [] { return std::to_string(setContactAsDefault(company, jo)); }),
    writes("setNone", [] { setNoContactAsDefault(company); }),
    writes("update", [] { updateDefaultContactInfo(company); }),
    writes("summaries", [] { saveContactBusinessRTFForAllCompanies(al); }),
    writes("summary", [] { saveContactBusinessRTF(jo, company); }),
    writes("noDefault", [] { saveNoDefaultComment(company); }),
    gives("categories", "",
          [] {
            clsClientAddrBkCatTxt text;
            text.put_CompanyIDNum(company);
            text.generateCategoryText();
            return text.CategoryText;
          }),
});

WALK_OPERATIONS(ContactFaults, operations, fillAddressBook, written);

TEST(ContactStatements, StandAsHostsKnowThem) {
  expectStatements(operations, fillAddressBook, AUTONOTIFY_TEST_FOLDER "contact_statements.txt");
}

}  // namespace
}  // namespace autonotify::test
