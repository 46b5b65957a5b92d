#include <algorithm>

#include "contacts/modDatabaseFunctions.h"
#include "platform/controls/ComboBox.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;
using List = std::vector<std::string>;

class Recipients : public HostTest {
 protected:
  Recipients() {
    addRow("ContactLinks", {{"ContactIDNum", plain}, {"CompanyNum", company}});
    addRow("AccountantFirmInfo", {{"Email", "firm@x"}, {"FaxNumber", "90"}});
    addRow("AccountantEmployeeInfo", {{"BusinessEmail", "S@x"}, {"BusinessPhone_Fax", "91"}});
    addRow("AccountantEmployeeInfo", {{"PersonalEmail", "FIRM@x"}, {"HomePhone_Fax", "92"}});
  }
  /// What the run fills in, and behind it the text put in place, marked.
  template <class Run>
  List filled(Run&& run) {
    ComboBox combo;
    combo.addItem("old");
    run(combo);
    List list;
    for (const auto& entry : combo.entries()) list.push_back(entry.text);
    if (!combo.text().empty()) list.push_back("-> " + combo.text());
    return list;
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

TEST_F(Recipients, ListsOfACompany) {
  const auto emails = [&](ComboBox& combo) {
    populateCompanyAndContactEmailAddressesInCombo(company, combo, true, true);
  };
  const auto faxes = [&](ComboBox& combo) {
    populateCompanyAndContactFaxNumbersInCombo(company, combo, true);
  };
  const auto phones = [&](ComboBox& combo) {
    populateCompanyAndContactPhoneNumbersInCombo(company, combo, true);
  };
  const auto allNames = [&](ComboBox& combo) {
    populateCompanyAndContactFaxRecipientInCombo(company, combo, true);
  };
  const auto names = [&](ComboBox& combo) {
    populateCompanyContactNamesInCombo(company, combo, true);
  };
  EXPECT_EQ(filled(emails), (List{"acme@x", "al@x", "firm@x", "S@x", "-> acme@x"}));
  EXPECT_EQ(filled(names), List{"Al"}) << "no default contact";
  makeDefault();
  EXPECT_EQ(filled(emails), (List{"acme@x", "al@x", "jo@x", "firm@x", "S@x", "-> jo@x"}));
  EXPECT_EQ(filled(faxes), (List{"10", "11", "12", "-> 10"})) << "no fax at work";
  EXPECT_EQ(filled(phones), (List{"20", "22", "21", "-> 22"})) << "column by column";
  EXPECT_EQ(filled(allNames), (List{"Acme", "Al", "Jo", "-> Jo"}));
  EXPECT_EQ(filled(names), (List{"Al", "Jo", "-> Jo"}));
  linkDefaultContact(plain, company);
  EXPECT_EQ(filled(names).back(), "-> Jo") << "the first of two defaults";
}

TEST_F(Recipients, ListsOfAContactCarryLabels) {
  EXPECT_EQ(filled([&](ComboBox& combo) {
              populateContactEmailAddressesInCombo(contact, combo, false, true);
            }),
            (List{"jo@x", "ACME@x", "sam@x", "-> jo@x"}));
  EXPECT_EQ(
      filled([&](ComboBox& combo) { populateContactFaxNumbersInCombo(contact, combo, true); }),
      (List{"12 <Home Fax>", "-> 12 <Home Fax>"}));
  EXPECT_EQ(
      filled([&](ComboBox& combo) { populateContactPhoneNumbersInCombo(contact, combo, true); }),
      (List{"22 <Business Phone>", "27 <Business Pager>", "25 <Home Cell>",
            "26 <Personal Alt Phone>", "23 <Home Pager>", "24 <Spouse Cell>",
            "-> 22 <Business Phone>"}));
  EXPECT_EQ(
      filled([&](ComboBox& combo) { populateContactFaxRecipientInCombo(contact, combo, true); }),
      (List{"Jo", "-> Jo"}));
  EXPECT_EQ(
      filled([&](ComboBox& combo) { populateContactContactNamesInCombo(contact, combo, true); }),
      (List{"Jo", "Sam", "-> Jo"}));
  EXPECT_EQ(
      filled([&](ComboBox& combo) { populateContactContactNamesInCombo(contact, combo, false); }),
      (List{"Jo", "Sam"}));
}

TEST_F(Recipients, ChooseTheLikeliestTextThatThereIsWhenAsked) {
  const auto emailsOfCompany = [](Id id, ComboBox& combo, bool select) {
    populateCompanyAndContactEmailAddressesInCombo(id, combo, true, select);
  };
  const auto emailsOfContact = [](Id id, ComboBox& combo, bool select) {
    populateContactEmailAddressesInCombo(id, combo, true, select);
  };
  const struct {
    bool isCompany;
    void (*fill)(Id id, ComboBox& combo, bool select);
    List likeliest;
  } cases[] = {
      {true, emailsOfCompany, {"BusinessEmail", "Email", "PersonalEmail"}},
      {false, emailsOfContact, {"BusinessEmail", "PersonalEmail"}},
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
        "HomePhone_Cell", "PersonalAltPhoneNumber"}},
  };
  const List columnsOfCompany = {"Email", "FaxNumber", "OfficeNumber"};
  for (const auto& [isCompany, fill, likeliest] : cases) {
    const Id full = addNamedByColumn("Companies", columnsOfCompany);
    const Id person = addNamedByColumn(
        "Contacts", {"BusinessEmail", "PersonalEmail", "BusinessPhone_Fax", "HomePhone_Fax",
                     "BusinessPhone_Main", "BusinessPhone_Cell", "BusinessAltPhoneNumber",
                     "HomePhone_Main", "HomePhone_Cell", "PersonalAltPhoneNumber"});
    linkDefaultContact(person, full);
    const auto chosen = [&](bool select) {
      ComboBox combo;
      fill(isCompany ? full : person, combo, select);
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

TEST_F(Recipients, OfTheFirmOfNobodyAndOfAClosedDatabase) {
  EXPECT_EQ(filled(populateAccountingFirmsAndStaffFaxNumbersInCombo), (List{"90", "91", "92"}));
  EXPECT_EQ(filled([&](ComboBox& combo) {
              populateContactEmailAddressesInCombo(99, combo, false, true);
            }),
            List{});
  closeDatabase();
  EXPECT_EQ(filled(populateAccountingFirmsAndStaffFaxNumbersInCombo), List{"old"});
}

TEST_F(Recipients, StatementsStandAsHostsKnowThem) {
  const std::string ofCompany = " From Companies WHERE CompanyID = 1;";
  const std::string ofContact = " FROM Contacts WHERE ContactID = 2;";
  const auto ofPeople = [](const std::string& columns) {
    return "1,1 SELECT Contacts.ContactID, " + columns +
           ", ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM "
           "Contacts INNER JOIN ContactLinks ON Contacts.ContactID = ContactLinks.ContactIDNum "
           "WHERE ContactLinks.CompanyNum = 1;";
  };
  ComboBox combo;
  EXPECT_THAT(
      statementsOf([&] {
        populateCompanyAndContactEmailAddressesInCombo(company, combo, true, true);
        populateContactEmailAddressesInCombo(contact, combo, false, true);
        populateCompanyAndContactFaxNumbersInCombo(company, combo, true);
        populateContactFaxNumbersInCombo(contact, combo, true);
        populateAccountingFirmsAndStaffFaxNumbersInCombo(combo);
        populateCompanyAndContactPhoneNumbersInCombo(company, combo, true);
        populateContactPhoneNumbersInCombo(contact, combo, true);
        populateCompanyAndContactFaxRecipientInCombo(company, combo, true);
        populateContactContactNamesInCombo(contact, combo, true);
      }),
      ElementsAre(
          "1,1 SELECT Companies.CompanyID, Companies.Email" + ofCompany,
          ofPeople("Contacts.BusinessEmail, Contacts.PersonalEmail"),
          "1,1 SELECT AccountantFirmInfo.Email From AccountantFirmInfo;",
          "1,1 SELECT AccountantEmployeeInfo.PersonalEmail, AccountantEmployeeInfo.BusinessEmail "
          "FROM AccountantEmployeeInfo;",
          "1,1 SELECT Contacts.ContactID, Contacts.BusinessEmail, Contacts.PersonalEmail, "
          "Contacts.SpouseEmail" +
              ofContact,
          "1,1 SELECT Companies.CompanyID, Companies.FaxNumber" + ofCompany,
          ofPeople("Contacts.BusinessPhone_Fax, Contacts.HomePhone_Fax"),
          "1,1 SELECT Contacts.ContactID, Contacts.HomePhone_Fax, Contacts.BusinessPhone_Fax" +
              ofContact,
          "1,1 SELECT AccountantFirmInfo.CompanyID, AccountantFirmInfo.FaxNumber From "
          "AccountantFirmInfo;",
          "1,1 SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.BusinessPhone_Fax, "
          "AccountantEmployeeInfo.HomePhone_Fax FROM AccountantEmployeeInfo;",
          "1,1 SELECT Companies.CompanyID, Companies.OfficeNumber" + ofCompany,
          ofPeople("Contacts.BusinessPhone_Main, Contacts.HomePhone_Main"),
          "1,1 SELECT Contacts.ContactID, Contacts.HomePhone_Cell, Contacts.HomePhone_Pager, "
          "Contacts.BusinessAltPhoneNumber, Contacts.PersonalAltPhoneNumber, "
          "Contacts.SpousePhone_Main, Contacts.SpousePhone_Cell, Contacts.BusinessPhone_Cell, "
          "Contacts.BusinessPhone_Pager, Contacts.HomePhone_Main, Contacts.BusinessPhone_Main" +
              ofContact,
          "1,1 SELECT Companies.CompanyID, Companies.CompanyName" + ofCompany,
          ofPeople("Contacts.DisplayName"),
          "1,1 SELECT Contacts.ContactID, Contacts.DisplayName" + ofContact,
          "1,1 SELECT Contacts.ContactID, Contacts.SpouseName" + ofContact));
}

}  // namespace
}  // namespace autonotify::test
