#include <algorithm>

#include "contacts/filled_lists.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

class Recipients : public HostTest {
 protected:
  Recipients() {
    addRow("ContactLinks", {{"ContactIDNum", plain}, {"CompanyNum", company}});
    addRow("AccountantFirmInfo", {{"Email", "firm@x"}, {"FaxNumber", "90"}});
    addRow("AccountantEmployeeInfo", {{"BusinessEmail", "S@x"}, {"BusinessPhone_Fax", "91"}});
    addRow("AccountantEmployeeInfo", {{"PersonalEmail", "FIRM@x"}, {"HomePhone_Fax", "92"}});
  }
  void makeDefault() { linkDefaultContact(contact, company); }

  Id company = addRow(
      "Companies",
      {{"CompanyName", "Acme"}, {"Email", "acme@x"}, {"FaxNumber", "10"}, {"OfficeNumber", "20"}});
  Id plain = addRow("Contacts", {{"DisplayName", "Al"},
                                 {"BusinessEmail", "al@x"},
                                 {"HomePhone_Fax", "11"},
                                 {"HomePhone_Main", "21"}});
  Id contact = addRow("Contacts", {{"DisplayName", "Jo"},
                                   {"SpouseName", "Sam"},
                                   {"BusinessEmail", "jo@x"},
                                   {"PersonalEmail", "ACME@x"},
                                   {"SpouseEmail", "sam@x"},
                                   {"HomePhone_Fax", "12"},
                                   {"BusinessPhone_Main", "22"},
                                   {"HomePhone_Pager", "23"},
                                   {"BusinessPhone_Pager", "27"},
                                   {"HomePhone_Cell", "25"},
                                   {"PersonalAltPhoneNumber", "26"},
                                   {"SpousePhone_Cell", "24"}});
};

TEST_F(Recipients, OfACompanyKnowItsPeople) {
  const auto names = populateCompanyContactNamesInCombo;
  EXPECT_EQ(filled(companyEmails, company), (List{"acme@x", "al@x", "firm@x", "S@x", "-> acme@x"}));
  EXPECT_EQ(filled(names, company), List{"Al"}) << "no default contact";
  makeDefault();
  const std::pair<Fill, List> cases[] = {
      {companyEmails, {"acme@x", "al@x", "jo@x", "firm@x", "S@x", "-> jo@x"}},
      {populateCompanyAndContactFaxNumbersInCombo, {"10", "11", "12", "-> 10"}},
      {populateCompanyAndContactPhoneNumbersInCombo, {"20", "22", "21", "-> 22"}},
      {populateCompanyAndContactFaxRecipientInCombo, {"Acme", "Al", "Jo", "-> Jo"}},
      {names, {"Al", "Jo", "-> Jo"}}};
  for (const auto& [fill, list] : cases) EXPECT_EQ(filled(fill, company), list);
  linkDefaultContact(plain, company);
  EXPECT_EQ(filled(names, company).back(), "-> Al") << "the first contact of two defaults";
}

TEST_F(Recipients, OfAContactCarryLabels) {
  const std::pair<Fill, List> cases[] = {
      {contactEmails, {"jo@x", "ACME@x", "sam@x", "-> jo@x"}},
      {populateContactFaxNumbersInCombo, {"12 <Home Fax>", "-> 12 <Home Fax>"}},
      {populateContactPhoneNumbersInCombo,
       {"22 <Business Phone>", "27 <Business Pager>", "25 <Home Cell>", "26 <Personal Alt Phone>",
        "23 <Home Pager>", "24 <Spouse Cell>", "-> 22 <Business Phone>"}},
      {populateContactFaxRecipientInCombo, {"Jo", "-> Jo"}},
      {populateContactContactNamesInCombo, {"Jo", "Sam", "-> Jo"}},
      {firmFaxes, {"90", "91", "92"}}};
  for (const auto& [fill, list] : cases) EXPECT_EQ(filled(fill, contact), list);
  EXPECT_EQ(filled(populateContactContactNamesInCombo, contact, false), (List{"Jo", "Sam"}));
  EXPECT_EQ(filled(contactEmails, 99), List{});
  EXPECT_EQ(statementsOf([] { filled(contactEmails, noId); }), List{});
  ComboBox withFirm;
  populateContactEmailAddressesInCombo(contact, withFirm, true, false);
  EXPECT_EQ(withFirm.listCount(), 5);
}

TEST_F(Recipients, ChooseTheLikeliestTextThatThereIsWhenAsked) {
  const std::tuple<bool, Fill, List> cases[] = {
      {true, companyEmails, {"BusinessEmail", "Email", "PersonalEmail"}},
      {false, contactEmails, {"BusinessEmail", "PersonalEmail"}},
      {true,
       populateCompanyAndContactFaxNumbersInCombo,
       {"BusinessPhone_Fax", "FaxNumber", "HomePhone_Fax"}},
      {false, populateContactFaxNumbersInCombo, {"BusinessPhone_Fax", "HomePhone_Fax"}},
      {true,
       populateCompanyAndContactPhoneNumbersInCombo,
       {"BusinessPhone_Main", "OfficeNumber", "HomePhone_Main"}},
      {false,
       populateContactPhoneNumbersInCombo,
       {"BusinessPhone_Main", "BusinessPhone_Cell", "BusinessAltPhoneNumber", "HomePhone_Main",
        "HomePhone_Cell", "PersonalAltPhoneNumber"}}};
  const List columnsOfCompany = {"Email", "FaxNumber", "OfficeNumber"};
  for (const auto& [isCompany, fill, likeliest] : cases) {
    const Id full = addNamedByColumn("Companies", columnsOfCompany);
    const Id person = addNamedByColumn(
        "Contacts", {"BusinessEmail", "PersonalEmail", "BusinessPhone_Fax", "HomePhone_Fax",
                     "BusinessPhone_Main", "BusinessPhone_Cell", "BusinessAltPhoneNumber",
                     "HomePhone_Main", "HomePhone_Cell", "PersonalAltPhoneNumber"});
    linkDefaultContact(person, full);
    const auto chosen = [&, &fill = fill, &id = isCompany ? full : person](bool select) {
      ComboBox combo;
      fill(id, combo, select);
      return combo.text();
    };
    for (const std::string& column : likeliest) {
      EXPECT_THAT(chosen(true), testing::StartsWith(column));
      EXPECT_EQ(chosen(false), "");
      const bool isOfCompany = std::ranges::count(columnsOfCompany, column) > 0;
      plainDatabase->connection().exec(
          (isOfCompany ? "UPDATE Companies SET " : "UPDATE Contacts SET ") + column + "=NULL");
    }
    EXPECT_EQ(chosen(true), "");
  }
}

}  // namespace
}  // namespace autonotify::test
