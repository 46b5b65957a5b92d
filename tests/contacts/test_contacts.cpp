#include "contacts/address_records.h"
#include "contacts/clsClientAddrBkCatTxt.h"
#include "contacts/modDefaultContact.h"
#include "host/services/HostClientIDClass.h"
#include "host/services/HostGridColumnList.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using CategoryText = HostTest;

TEST_F(CategoryText, EndsAfterAHundredRounds) {
  const auto lineCount = [&](Id category) {
    clsClientAddrBkCatTxt text;
    text.put_CompanyIDNum(addRow("Companies", {{"CategoryNum", category}}));
    text.generateCategoryText();
    return std::ranges::count(text.CategoryText, '\n');
  };
  const auto addCategory = [&](Id parent) {
    return addRow("Categories", {{"CategoryNum", parent}, {"CategoryName", "C"}});
  };
  Id category = noId;
  for (int i = 0; i < 150; ++i) category = addCategory(category);
  EXPECT_EQ(lineCount(category), 101);
  EXPECT_EQ(lineCount(40), 40);
  plainDatabase->connection().exec("UPDATE Categories SET CategoryNum=1 WHERE CategoryID=1");
  EXPECT_EQ(lineCount(1), 101) << "a circle";
}

/// Writes down its end.
template <class HostClass>
struct Mortal : HostClass {
  explicit Mortal(std::string& log) : log_(log) {}
  ~Mortal() override { log_ += std::string(" ") + HostClass::className; }
  std::string& log_;
};
struct StubbornClient : Mortal<host::HostClientIDClass> {
  using Mortal::Mortal;
  void Terminate() override { throw PlatformError(1000, "no"); }
};

TEST_F(CategoryText, ReleasesTheClientBeforeTheChain) {
  std::string ends;
  registry.registerClass("ClientIDClass", [&] { return std::make_unique<StubbornClient>(ends); });
  registry.registerClass("GridColumnList",
                         [&] { return std::make_unique<Mortal<host::HostGridColumnList>>(ends); });
  for (const int choice : {error_choice::next, error_choice::leave}) {
    ends.clear();
    errors.answer({choice});
    { const clsClientAddrBkCatTxt text; }
    EXPECT_EQ(ends, " ClientIDClass GridColumnList");
  }
}

TEST_F(HostTest, AChangeOfTheDefaultContactWithASkippedCallTakesNobodyAway) {
  constexpr Id company = 1, al = 1, jo = 2;
  addAllTold(*this, "address_book.txt", "default contact");
  linkDefaultContact(al, company);
  calls.reset();
  calls.record(true);
  setContactAsDefault(company, jo);
  const auto whole = calls.log();
  const int total = calls.count();
  for (int n = 1; n <= total; ++n) {
    setContactAsDefault(company, al);
    errors.answerRest(1, 9);
    calls.reset();
    calls.failAt(n);
    setContactAsDefault(company, jo);
    calls.reset();
    errors.answerRest(1, 0);
    EXPECT_GT(rowCount("ContactLinks WHERE DefaultContact<>0"), 0)
        << whole[static_cast<std::size_t>(n - 1)];
  }
}

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

TEST_F(HostTest, AddressesPutEachColumnInItsPlace) {
  bool person = true;
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

}  // namespace
}  // namespace autonotify::test
