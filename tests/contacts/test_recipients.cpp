
#include "contacts/filled_lists.h"
#include "support/HostTest.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

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

}  // namespace
}  // namespace autonotify::test
