#include "contacts/address_records.h"
#include "platform/controls/RichTextBox.h"
#include "platform/text.h"
#include "support/HostTest.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

/// Line ends as "|", to be read at a glance.
std::string shown(const std::string& text) {
  return replaceAll(text, "\r\n", "|");
}

AddressRecord recordOf(std::initializer_list<std::pair<AddressField, const char*>> fields) {
  AddressRecord record;
  for (const auto& [field, text] : fields) record[field] = text;
  return record;
}

using enum AddressField;

TEST_F(HostTest, AddressBlocksByTheirFields) {
  constexpr AddressField fields[] = {businessName, personName, street, city,
                                     province,     postalCode, country};
  for (const auto& row : rowsOf("address_blocks.txt", "blocks", 8)) {
    AddressRecord record;
    for (std::size_t i = 0; i < std::size(fields); ++i) record[fields[i]] = row[i];
    EXPECT_EQ(shown(createAddress(record, true, false)), row[7]);
  }
  EXPECT_EQ(createAddress(recordOf({{personName, "Jo"}}), false, false), "");
}

TEST_F(HostTest, ContactLinesStandInOrderAndRTFConvertsTheBlockTwice) {
  AddressRecord record = recordOf({{street, "1 Elm"}, {city, "Ottawa"}});
  const char* texts[] = {"1", "2", "3", "4", "5", "6"};
  const AddressField fields[] = {phone, fax, cell, homePhone, email, webSite};
  for (int i = 0; i < 6; ++i) record[fields[i]] = texts[i];
  EXPECT_EQ(shown(createAddressWithContactInfo(record, true, false)),
            "1 Elm|Ottawa|Phone: 1|Fax: 2|Cell: 3|Home: 4|Email: 5|Web Site: 6");
  record.fields[8] = record.fields[9] = record.fields[10] = record.fields[11] = " ";
  EXPECT_EQ(shown(createAddressWithContactInfo(record, true, true)),
            "1 Elm\\par \\par |Ottawa\\par |Phone: 1\\par |Web Site: 6");
  EXPECT_EQ(shown(createAddress(record, true, true)), "1 Elm\\par |Ottawa");
  clearAddressFields(record);
  EXPECT_EQ(createAddressWithContactInfo(record, true, true), "");
}

constexpr AddressParts everything{true, true, true};

class Addresses : public HostTest {
 protected:
  static constexpr Id company = 1, contact = 1, other = 2, firm = 1, staff = 1, otherStaff = 2;

  Addresses() { addAllTold(*this, "address_book.txt", "addresses"); }

  bool person = true;
};

TEST_F(Addresses, OfACompanyWithAndWithoutDefaultContact) {
  EXPECT_EQ(shown(createCompanyAddress(company, noId, {true, false, false}, person, false)),
            "Acme|1 Elm|Ottawa");
  EXPECT_FALSE(person) << "no default contact";
  linkDefaultContact(contact, company);
  person = true;
  EXPECT_EQ(shown(createCompanyAddress(company, noId, everything, person, false)),
            "Acme|Jo Park|1 Elm|Ottawa|Phone: 1|Fax: 2|Email: a@x");
  EXPECT_TRUE(person);
  EXPECT_EQ(shown(createCompanyAddress(company, noId, {false, false, true}, person, false)),
            "Jo Park||Email: a@x");
  EXPECT_EQ(shown(createCompanyAddress(noId, firm, {true, false, false}, person, false)),
            "Firm|7 Ash|");
}

TEST_F(Addresses, AtWorkInheritThePlaceFirstAndTheNumbersLast) {
  const AddressPerson jo{.contactId = contact};
  const std::tuple<AddressPerson, Id, AddressParts, bool, const char*> cases[] = {
      {jo, noId, everything, true, "Jo Inc|Jo Park|9 Oak|QC|Phone: 3|Cell: 4|Email: jo@x"},
      {jo, company, everything, true,
       "Jo Inc|Jo Park|1 Elm|Ottawa, QC|Phone: 3|Fax: 2|Cell: 4|Email: jo@x"},
      {jo, company, {}, false, "Jo Park|"},
      {jo, company, {}, true, "Jo Inc|Jo Park|"},
      {jo, company, {.address = true}, false, "Jo Inc|Jo Park|1 Elm|Ottawa, QC"},
      {jo, company, {.phones = true}, false, "Jo Park||Phone: 3|Fax: 2|Cell: 4"},
      {jo, company, {.email = true}, false, "Jo Park||Email: jo@x"},
      {{.contactId = other}, company, everything, true, "Ed Co|Ed|2 Fir|"},
      {{.employeeId = staff}, company, everything, true, "Al|7 Ash||Phone: 8"},
      {{.employeeId = otherStaff}, company, everything, true, "Cy|"},
      {{.contactId = 99}, company, everything, true, ""},
      {{}, company, everything, true, ""}};
  for (const auto& [who, ofCompany, parts, withName, block] : cases)
    EXPECT_EQ(shown(createBusinessContactAddress(who, ofCompany, parts, withName, false)), block);
}

TEST_F(Addresses, PutEachColumnInItsPlace) {
  const Id full = addNamedByColumn(
      "Contacts",
      {"BusinessName",      "DisplayName",        "BusinessAddress", "BusinessCity",
       "BusinessProvince",  "BusinessPostalCode", "BusinessCountry", "BusinessPhone_Main",
       "BusinessPhone_Fax", "BusinessPhone_Cell", "BusinessEmail",   "HomeAddress",
       "HomeCity",          "HomeProvince",       "HomePostalCode",  "HomeCountry",
       "HomePhone_Main",    "HomePhone_Fax",      "HomePhone_Cell",  "PersonalEmail"});
  const Id fullCompany =
      addNamedByColumn("Companies", {"CompanyName", "Address", "City", "Province", "PostalCode",
                                     "Country", "OfficeNumber", "FaxNumber", "Email"});
  const Id heir = addRow("Contacts", {{"InheritCompanyInfo", "True"}});
  const auto atWork = [](Id id, Id ofCompany) {
    return shown(createBusinessContactAddress({id, noId}, ofCompany, everything, true, false));
  };
  EXPECT_EQ(atWork(full, noId),
            "BusinessName|DisplayName|BusinessAddress|BusinessCity, BusinessProvince  "
            "BusinessPostalCode|BusinessCountry|Phone: BusinessPhone_Main|Fax: BusinessPhone_Fax|"
            "Cell: BusinessPhone_Cell|Email: BusinessEmail");
  EXPECT_EQ(shown(createPersonalContactAddress({full, noId}, everything, false)),
            "DisplayName|HomeAddress|HomeCity, HomeProvince  HomePostalCode|HomeCountry|"
            "Phone: HomePhone_Main|Fax: HomePhone_Fax|Cell: HomePhone_Cell|Email: PersonalEmail");
  const std::string place = "Address|City, Province  PostalCode|Country|";
  const std::string numbers = "Phone: OfficeNumber|Fax: FaxNumber";
  EXPECT_EQ(atWork(heir, fullCompany), place + numbers);
  EXPECT_EQ(shown(createCompanyAddress(fullCompany, noId, everything, person, false)),
            "CompanyName|" + place + numbers + "|Email: Email");
}

TEST_F(Addresses, AtHome) {
  EXPECT_EQ(shown(createPersonalContactAddress({contact, noId}, everything, false)),
            "Jo Park|5 Fir||Phone: 6|Email: jo@home");
  EXPECT_EQ(shown(createPersonalContactAddress({noId, staff}, {true, false, false}, true)),
            "Al\\par \\par |3 Bay\\par \\par |");
}

TEST_F(Addresses, HeadingsComeIntoABoxAndOutAgain) {
  const DateTime day = DateTime::of(2026, 4, 5);
  EXPECT_EQ(shown(createInsertBusinessAddress(company, {{}, true})), " Acme|1 Elm|Ottawa||")
      << "nobody to greet";
  linkDefaultContact(contact, company);
  EXPECT_EQ(shown(createInsertBusinessAddress(company, {{}, false, true})),
            " Acme\\par |Jo Park\\par |1 Elm\\par |Ottawa||");
  EXPECT_EQ(shown(createInsertBusinessAddress(company, {day, true})),
            " April 5, 2026||Acme|Jo Park|1 Elm|Ottawa||Dear Jo Park,||");
  EXPECT_EQ(shown(createInsertContactPersonalAddress(contact, {{}, true})),
            " Jo Park|5 Fir|||Dear Jo Park,||");
  EXPECT_EQ(createInsertBusinessAddress(noId, {day, true}), "");

  RichTextBox box;
  box.setTextRTF("{\\rtf1 Your \\b return\\b0  is due.}");
  const std::string before = box.textRTF();
  insertBusinessAddress(box, company, {day, true});
  EXPECT_EQ(shown(box.text()),
            " April 5, 2026||Acme|Jo Park|1 Elm|Ottawa||Dear Jo Park,||Your return is due.");
  const std::string with = box.textRTF();
  removeBusinessAddress(box, company, {day.addDays(1), true});
  EXPECT_EQ(box.textRTF(), with) << "the heading is of another day";
  removeBusinessAddress(box, company, {day, true});
  EXPECT_EQ(box.textRTF(), before);

  RichTextBox empty;
  insertContactPersonalAddress(empty, contact, {});
  EXPECT_EQ(shown(empty.text()), " Jo Park|5 Fir||| ");
  removeContactPersonalAddress(empty, contact, {});
  EXPECT_EQ(empty.text(), " ");

  RichTextBox ofNobody;
  insertBusinessAddress(ofNobody, noId, {day, true});
  EXPECT_EQ(ofNobody.text(), " ") << "an empty box gets its blank without a heading as well";
  removeBusinessAddress(ofNobody, noId, {day, true});
  EXPECT_EQ(ofNobody.text(), " ");
}

}  // namespace
}  // namespace autonotify::test
