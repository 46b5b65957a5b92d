#include "contacts/recipient_lists.h"

#include "contract/tags.h"

// Rows of the lists. People of a company come through their links.

#define AUTONOTIFY_PEOPLE(columns)                                                           \
  "SELECT Contacts.ContactID, " columns                                                      \
  ", ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact "       \
  "FROM Contacts INNER JOIN ContactLinks ON Contacts.ContactID = ContactLinks.ContactIDNum " \
  "WHERE ContactLinks.CompanyNum = "

namespace autonotify::recipient_list {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modDatabaseFunctions", name>;

using enum RecipientSource::Extent;
using Columns = RecipientColumn;

// Emails.

constexpr Columns email[] = {{"Email"}};
constexpr Columns emails[] = {{"BusinessEmail"}, {"PersonalEmail"}};
constexpr Columns emailsAndSpouse[] = {{"BusinessEmail"}, {"PersonalEmail"}, {"SpouseEmail"}};

constexpr RecipientSource contactEmailSources[] = {
    {"SELECT Contacts.ContactID, Contacts.BusinessEmail, Contacts.PersonalEmail, "
     "Contacts.SpouseEmail FROM Contacts WHERE ContactID = ",
     first, emailsAndSpouse}};
constexpr RecipientSource companyEmailSources[] = {
    {"SELECT Companies.CompanyID, Companies.Email From Companies WHERE CompanyID = ", first, email},
    {AUTONOTIFY_PEOPLE("Contacts.BusinessEmail, Contacts.PersonalEmail"), people, emails}};
constexpr RecipientSource firmEmailSources[] = {
    {"SELECT AccountantFirmInfo.Email From AccountantFirmInfo;", first, email},
    {"SELECT AccountantEmployeeInfo.PersonalEmail, AccountantEmployeeInfo.BusinessEmail FROM "
     "AccountantEmployeeInfo;",
     all, emails}};
constexpr const char* contactEmailDefaults[] = {"BusinessEmail", "PersonalEmail"};
constexpr const char* companyEmailDefaults[] = {"BusinessEmail", "Email", "PersonalEmail"};

// Fax numbers.

constexpr Columns fax[] = {{"FaxNumber"}};
constexpr Columns faxes[] = {{"BusinessPhone_Fax"}, {"HomePhone_Fax"}};
constexpr Columns labelledFaxes[] = {
    {"BusinessPhone_Fax", " <Business Fax>"},
    {"HomePhone_Fax", " <Home Fax>"},
};

constexpr RecipientSource contactFaxSources[] = {
    {"SELECT Contacts.ContactID, Contacts.HomePhone_Fax, Contacts.BusinessPhone_Fax FROM Contacts "
     "WHERE ContactID = ",
     first, labelledFaxes}};
constexpr RecipientSource companyFaxSources[] = {
    {"SELECT Companies.CompanyID, Companies.FaxNumber From Companies WHERE CompanyID = ", first,
     fax},
    {AUTONOTIFY_PEOPLE("Contacts.BusinessPhone_Fax, Contacts.HomePhone_Fax"), people, faxes}};
constexpr RecipientSource firmFaxSources[] = {
    {"SELECT AccountantFirmInfo.CompanyID, AccountantFirmInfo.FaxNumber From AccountantFirmInfo;",
     first, fax},
    {"SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.BusinessPhone_Fax, "
     "AccountantEmployeeInfo.HomePhone_Fax FROM AccountantEmployeeInfo;",
     all, faxes}};
constexpr const char* contactFaxDefaults[] = {"BusinessPhone_Fax", "HomePhone_Fax"};
constexpr const char* companyFaxDefaults[] = {"BusinessPhone_Fax", "FaxNumber", "HomePhone_Fax"};

// Phone numbers.

constexpr Columns officePhone[] = {{"OfficeNumber"}};
constexpr Columns phones[] = {{"BusinessPhone_Main"}, {"HomePhone_Main"}};
constexpr Columns labelledPhones[] = {
    {"BusinessPhone_Main", " <Business Phone>"},
    {"BusinessPhone_Cell", " <Business Cell>"},
    {"BusinessAltPhoneNumber", " <Business Alt Phone>"},
    {"BusinessPhone_Pager", " <Business Pager>"},
    {"HomePhone_Main", " <Home Phone>"},
    {"HomePhone_Cell", " <Home Cell>"},
    {"PersonalAltPhoneNumber", " <Personal Alt Phone>"},
    {"HomePhone_Pager", " <Home Pager>"},
    {"SpousePhone_Main", " <Spouse Phone>"},
    {"SpousePhone_Cell", " <Spouse Cell>"},
};

constexpr RecipientSource contactPhoneSources[] = {
    {"SELECT Contacts.ContactID, Contacts.HomePhone_Cell, Contacts.HomePhone_Pager, "
     "Contacts.BusinessAltPhoneNumber, Contacts.PersonalAltPhoneNumber, Contacts.SpousePhone_Main, "
     "Contacts.SpousePhone_Cell, Contacts.BusinessPhone_Cell, Contacts.BusinessPhone_Pager, "
     "Contacts.HomePhone_Main, Contacts.BusinessPhone_Main FROM Contacts WHERE ContactID = ",
     first, labelledPhones}};
constexpr RecipientSource companyPhoneSources[] = {
    {"SELECT Companies.CompanyID, Companies.OfficeNumber From Companies WHERE CompanyID = ", first,
     officePhone},
    {AUTONOTIFY_PEOPLE("Contacts.BusinessPhone_Main, Contacts.HomePhone_Main"), people, phones}};
constexpr const char* contactPhoneDefaults[] = {
    "BusinessPhone_Main", "BusinessPhone_Cell", "BusinessAltPhoneNumber",
    "HomePhone_Main",     "HomePhone_Cell",     "PersonalAltPhoneNumber",
};
constexpr const char* companyPhoneDefaults[] = {
    "BusinessPhone_Main",
    "OfficeNumber",
    "HomePhone_Main",
};

// Names.

constexpr Columns displayName[] = {{"DisplayName"}};
constexpr Columns spouseName[] = {{"SpouseName"}};
constexpr Columns companyName[] = {{"CompanyName"}};

constexpr RecipientSource contactNameSources[] = {
    {"SELECT Contacts.ContactID, Contacts.DisplayName FROM Contacts WHERE ContactID = ", first,
     displayName},
    {"SELECT Contacts.ContactID, Contacts.SpouseName FROM Contacts WHERE ContactID = ", first,
     spouseName}};
constexpr RecipientSource companyNameSources[] = {
    {"SELECT Companies.CompanyID, Companies.CompanyName From Companies WHERE CompanyID = ", first,
     companyName},
    {AUTONOTIFY_PEOPLE("Contacts.DisplayName"), people, displayName}};
constexpr const char* nameDefaults[] = {"DisplayName"};

}  // namespace

const RecipientList contactEmails{
    tagOf<"populateContactEmailAddressesInCombo">,
    contactEmailSources,
    contactEmailDefaults,
};
const RecipientList companyEmails{
    tagOf<"populateCompanyAndContactEmailAddressesInCombo">,
    companyEmailSources,
    companyEmailDefaults,
};
const RecipientList contactFaxes{
    tagOf<"populateContactFaxNumbersInCombo">,
    contactFaxSources,
    contactFaxDefaults,
};
const RecipientList companyFaxes{
    tagOf<"populateCompanyAndContactFaxNumbersInCombo">,
    companyFaxSources,
    companyFaxDefaults,
};
const RecipientList firmFaxes{
    tagOf<"populateAccountingFirmsAndStaffFaxNumbersInCombo">,
    firmFaxSources,
};
const RecipientList contactFaxRecipient{
    tagOf<"populateContactFaxRecipientInCombo">,
    std::span(contactNameSources).first(1),
};
const RecipientList companyFaxRecipients{
    tagOf<"populateCompanyAndContactFaxRecipientInCombo">,
    companyNameSources,
    nameDefaults,
};
const RecipientList contactNames{
    tagOf<"populateContactContactNamesInCombo">,
    contactNameSources,
};
const RecipientList companyNames{
    tagOf<"populateCompanyContactNamesInCombo">,
    std::span(companyNameSources).last(1),
    nameDefaults,
};
const RecipientList contactPhones{
    tagOf<"populateContactPhoneNumbersInCombo">,
    contactPhoneSources,
    contactPhoneDefaults,
};
const RecipientList companyPhones{
    tagOf<"populateCompanyAndContactPhoneNumbersInCombo">,
    companyPhoneSources,
    companyPhoneDefaults,
};
const std::span<const RecipientSource> firmAndStaffEmails = firmEmailSources;

}  // namespace autonotify::recipient_list
