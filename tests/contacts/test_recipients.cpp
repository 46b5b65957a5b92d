#include "contacts/clsClientAddrBkCatTxt.h"
#include "contacts/modAddressFormatting.h"
#include "contacts/modContactSummaries.h"
#include "contacts/modDatabaseFunctions.h"
#include "contacts/modDefaultContact.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/RichTextBox.h"
#include "support/HostTest.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

/// Fills the combo box for a client; with `select` the likeliest text is put in place.
using Fill = void (*)(Id client, ComboBox& combo, bool select);

// The members that take other arguments.

void companyEmails(Id client, ComboBox& combo, bool select) {
  populateCompanyAndContactEmailAddressesInCombo(client, combo, true, select);
}
void contactEmails(Id client, ComboBox& combo, bool select) {
  populateContactEmailAddressesInCombo(client, combo, false, select);
}
void firmFaxes(Id, ComboBox& combo, bool) {
  populateAccountingFirmsAndStaffFaxNumbersInCombo(combo);
}

struct NamedFill {
  const char* name;
  bool isOfCompany;
  Fill fill;
};
constexpr NamedFill fills[] = {
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
std::string filled(Fill fill, Id client, bool select = true) {
  ComboBox combo;
  combo.addItem("old");
  fill(client, combo, select);
  std::string list;
  for (const auto& entry : combo.entries()) list += entry.text + "|";
  return list + (combo.text().empty() ? "" : "-> " + combo.text() + "|");
}

constexpr const char* file = "recipient_lists.txt";

const NamedFill& named(const std::string& name) {
  return *std::ranges::find(fills, name, &NamedFill::name);
}

class Recipients : public HostTest {
 protected:
  static constexpr Id company = 1, plain = 1, contact = 2;

  Recipients() { addAllTold(*this, "address_book.txt", "recipients"); }
};

TEST_F(Recipients, OfACompanyKnowItsPeople) {
  const auto names = populateCompanyContactNamesInCombo;
  EXPECT_EQ(filled(companyEmails, company), "acme@x|al@x|firm@x|S@x|-> acme@x|");
  EXPECT_EQ(filled(names, company), "Al|") << "no default contact";
  linkDefaultContact(contact, company);
  expectRows(file, "of a company", [&](auto& name) { return filled(named(name).fill, company); });
  linkDefaultContact(plain, company);
  EXPECT_TRUE(filled(names, company).ends_with("-> Al|")) << "the first contact of two defaults";
}

TEST_F(Recipients, OfAContactCarryLabels) {
  expectRows(file, "of a contact", [&](auto& name) { return filled(named(name).fill, contact); });
  EXPECT_EQ(filled(populateContactContactNamesInCombo, contact, false), "Jo|Sam|");
  EXPECT_EQ(filled(contactEmails, 99), "");
  EXPECT_EQ(statementsOf([] { filled(contactEmails, noId); }).size(), 0u);
  ComboBox withFirm;
  populateContactEmailAddressesInCombo(contact, withFirm, true, false);
  EXPECT_EQ(withFirm.listCount(), 5);
}

TEST_F(Recipients, ChooseTheLikeliestTextThatThereIsWhenAsked) {
  const auto columns = rowsOf(file, "columns", 1);
  const auto ofCompany = split(columns[0][0]), ofContact = split(columns[1][0]);
  for (const auto& row : rowsOf(file, "likeliest first", 2)) {
    const auto& [name, isOfCompany, fill] = named(row[0]);
    const Id full = addNamedByColumn("Companies", ofCompany);
    const Id person = addNamedByColumn("Contacts", ofContact);
    linkDefaultContact(person, full);
    const auto chosen = [&, fill = fill, id = isOfCompany ? full : person](bool select) {
      ComboBox combo;
      fill(id, combo, select);
      return combo.text();
    };
    for (const std::string& column : split(row[1])) {
      EXPECT_THAT(chosen(true), testing::StartsWith(column));
      EXPECT_EQ(chosen(false), "");
      const bool isCompanys = std::ranges::count(ofCompany, column) > 0;
      plainDatabase->connection().exec(
          (isCompanys ? "UPDATE Companies SET " : "UPDATE Contacts SET ") + column + "=NULL");
    }
    EXPECT_EQ(chosen(true), "");
  }
}

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
