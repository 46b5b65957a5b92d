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

using enum AddressField;

TEST_F(HostTest, AddressBlocksByTheirFields) {
  constexpr AddressField fields[] = {businessName, personName, street, city,
                                     province,     postalCode, country};
  for (const auto& row : rowsOf("address_blocks.txt", "blocks", 8)) {
    AddressRecord record;
    for (std::size_t i = 0; i < std::size(fields); ++i) record[fields[i]] = row[i];
    EXPECT_EQ(shown(createAddress(record, true, false)), row[7]);
  }
  AddressRecord nameOnly;
  nameOnly[personName] = "Jo";
  EXPECT_EQ(createAddress(nameOnly, false, false), "");
}

TEST_F(HostTest, ContactLinesStandInOrderAndRTFConvertsTheBlockTwice) {
  AddressRecord record;
  record[street] = "1 Elm";
  record[city] = "Ottawa";
  for (int i = 0; const AddressField field : {phone, fax, cell, homePhone, email, webSite})
    record[field] = std::to_string(++i);
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
  static constexpr Id company = 1, contact = 1, firm = 1, staff = 1;

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
  // A contact or one of staff, a company, which parts, and whether its name goes first.
  for (const auto& [contactId, employeeId, of, address, phones, email, withName, block] :
       casesOf<Id, Id, Id, bool, bool, bool, bool, std::string>("address_blocks.txt", "at work")) {
    const AddressParts parts{address, phones, email};
    const AddressPerson who{contactId, employeeId};
    EXPECT_EQ(shown(createBusinessContactAddress(who, of, parts, withName, false)), block);
  }
}

TEST_F(Addresses, PutEachColumnInItsPlace) {
  std::vector<Id> full;
  for (const auto& row : rowsOf("address_blocks.txt", "columns", 2))
    full.push_back(addNamedByColumn(row[0], {row.begin() + 1, row.end()}));
  const Id heir = addRow("Contacts", {{"InheritCompanyInfo", "True"}});
  const auto atWork = [](Id id, Id ofCompany) {
    return shown(createBusinessContactAddress({id, noId}, ofCompany, everything, true, false));
  };
  const auto blocks = rowsOf("address_blocks.txt", "blocks of columns", 1);
  EXPECT_EQ(atWork(full[0], noId), blocks[0][0]);
  EXPECT_EQ(shown(createPersonalContactAddress({full[0], noId}, everything, false)), blocks[1][0]);
  EXPECT_EQ(atWork(heir, full[1]), blocks[2][0]);
  EXPECT_EQ(shown(createCompanyAddress(full[1], noId, everything, person, false)), blocks[3][0]);
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
