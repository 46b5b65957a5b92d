#include "contacts/clsClientAddrBkCatTxt.h"
#include "contacts/modAddressFormatting.h"
#include "contacts/modContactSummaries.h"
#include "contacts/modDatabaseFunctions.h"
#include "contacts/modDefaultContact.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/RichTextBox.h"
#include "support/fault_walk.h"
#include "support/table_rows.h"

namespace autonotify::test {
namespace {

// One company and two contacts, each with the id 1 or 2; the first is the default contact.
void fillAddressBook(Rows rows) {
  const Id category = rows.addRow("Categories", {{"CategoryName", "Clients"}});
  const Id company = rows.addRow(
      "Companies", {{"CompanyName", "Acme"}, {"Email", "a@x"}, {"CategoryNum", category}});
  rows.addRow("CompaniesNotes", {{"CompanyNum", company}});
  for (const char* name : {"Al", "Jo"})
    rows.addRow("Contacts", {{"DisplayName", name},
                             {"BusinessEmail", name},
                             {"HomeCity", "Hull"},
                             {"InheritCompanyInfo", "True"}});
  rows.linkDefaultContact(1, company);
  rows.addRow("ContactLinks", {{"ContactIDNum", 2}, {"CompanyNum", company}});
  rows.addRow("AccountantFirmInfo", {{"Email", "firm@x"}});
}

struct Operation {
  const char* name;
  std::function<std::string()> run;
  std::string defaultResult;
};

template <class Run>
auto listedBy(Run run) {
  return [run] {
    ComboBox combo;
    run(combo);
    std::string text;
    for (const auto& entry : combo.entries()) text += entry.text + "|";
    return text + combo.text();
  };
}
template <class Run>
auto writtenBy(Run run) {
  return [run] {
    run();
    return std::string{};
  };
}

const DateTime day = DateTime::of(2026, 4, 5);

const Operation operations[] = {
    {"companyAddress",
     [] {
       bool person = true;
       return createCompanyAddress(1, person, true, noId, true, true, true);
     },
     ""},
    {"atWork",
     [] { return createBusinessContactAddress(1, false, noId, 1, true, true, true, true); }, ""},
    {"atHome", [] { return createPersonalContactAddress(1, false, noId, true, true, true); }, ""},
    {"heading",
     [] {
       RichTextBox box;
       insertBusinessAddress(box, 1, true, day, true, false);
       return box.text();
     },
     " "},
    {"removal",
     [] {
       RichTextBox box;
       box.setText(" Al\r\n\r\nHull\r\n\r\nx");
       removeContactPersonalAddress(box, 1, false, day, false);
       return box.text();
     },
     " Al\r\n\r\nHull\r\n\r\nx"},
    {"companyEmails", listedBy([](ComboBox& c) {
       populateCompanyAndContactEmailAddressesInCombo(1, c, true, true);
     }),
     ""},
    {"contactEmails",
     listedBy([](ComboBox& c) { populateContactEmailAddressesInCombo(1, c, true, true); }), ""},
    {"companyFaxes",
     listedBy([](ComboBox& c) { populateCompanyAndContactFaxNumbersInCombo(1, c, true); }), ""},
    {"contactFaxes", listedBy([](ComboBox& c) { populateContactFaxNumbersInCombo(1, c, true); }),
     ""},
    {"firmFaxes",
     listedBy([](ComboBox& c) { populateAccountingFirmsAndStaffFaxNumbersInCombo(c); }), ""},
    {"companyPhones",
     listedBy([](ComboBox& c) { populateCompanyAndContactPhoneNumbersInCombo(1, c, true); }), ""},
    {"contactPhones", listedBy([](ComboBox& c) { populateContactPhoneNumbersInCombo(1, c, true); }),
     ""},
    {"faxRecipients",
     listedBy([](ComboBox& c) { populateCompanyAndContactFaxRecipientInCombo(1, c, true); }), ""},
    {"faxRecipient", listedBy([](ComboBox& c) { populateContactFaxRecipientInCombo(1, c, true); }),
     ""},
    {"companyNames", listedBy([](ComboBox& c) { populateCompanyContactNamesInCombo(1, c, true); }),
     ""},
    {"contactNames", listedBy([](ComboBox& c) { populateContactContactNamesInCombo(1, c, true); }),
     ""},
    {"check", [] { return std::to_string(checkForDefaultContact(1, noId)); }, "-1"},
    {"setDefault", [] { return std::to_string(setContactAsDefault(1, 2)); }, "0"},
    {"setNone", writtenBy([] { setNoContactAsDefault(1); }), ""},
    {"update", writtenBy([] { updateDefaultContactInfo(1); }), ""},
    {"summaries", writtenBy([] { saveContactBusinessRTFForAllCompanies(1); }), ""},
    {"summary", writtenBy([] { saveContactBusinessRTF(2, 1); }), ""},
    {"noDefault", writtenBy([] { saveNoDefaultComment(1); }), ""},
    {"categories",
     [] {
       clsClientAddrBkCatTxt text;
       text.put_CompanyIDNum(1);
       text.generateCategoryText();
       return text.CategoryText;
     },
     ""},
};

void PrintTo(const Operation& operation, std::ostream* out) {
  *out << operation.name;
}

class ContactFaults : public testing::TestWithParam<Operation> {};

TEST_P(ContactFaults, AreSettled) {
  FaultWalk walk;
  walk.prepare = [](TestHost& host) { fillAddressBook(Rows(*host.plainDatabase)); };
  walk.run = [](TestHost&) { return GetParam().run(); };
  walk.defaultResult = GetParam().defaultResult;
  walk.written = [](TestHost& host) {
    return host.dump("SELECT * FROM ContactLinks") + host.dump("SELECT * FROM Companies") +
           host.dump("SELECT * FROM CompaniesNotes");
  };
  EXPECT_GE(walkFaults(walk).hostCalls, 5);
}

INSTANTIATE_TEST_SUITE_P(Operations, ContactFaults, testing::ValuesIn(operations),
                         [](const auto& operation) { return std::string(operation.param.name); });

}  // namespace
}  // namespace autonotify::test
