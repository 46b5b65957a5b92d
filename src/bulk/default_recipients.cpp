#include "bulk/default_recipients.h"

#include "contract/rows.h"

#define AUTONOTIFY_DEFAULT_CONTACT(columns)                                                  \
  "SELECT " columns                                                                          \
  ", ContactLinks.CompanyNum, ContactLinks.DefaultContact "                                  \
  "FROM Contacts INNER JOIN ContactLinks ON Contacts.ContactID = ContactLinks.ContactIDNum " \
  "WHERE ContactLinks.CompanyNum = "

namespace autonotify {
namespace {

constexpr const char* contactById =
    "SELECT Contacts.BusinessEmail, Contacts.PersonalEmail, Contacts.DisplayName, "
    "Contacts.BusinessPhone_Fax, Contacts.BusinessPhone_Main FROM Contacts WHERE ContactID=";
constexpr const char* contactEmails =
    AUTONOTIFY_DEFAULT_CONTACT("Contacts.BusinessEmail, Contacts.PersonalEmail");
constexpr const char* contactFaxes =
    AUTONOTIFY_DEFAULT_CONTACT("Contacts.DisplayName, Contacts.BusinessPhone_Fax");
constexpr const char* contactPhones =
    AUTONOTIFY_DEFAULT_CONTACT("Contacts.DisplayName, Contacts.BusinessPhone_Main");
constexpr const char* companyEmail =
    "SELECT Companies.CompanyID, Companies.Email From Companies WHERE Companies.CompanyID=";
constexpr const char* companyFax =
    "SELECT Companies.CompanyID, Companies.CompanyName, Companies.FaxNumber From Companies WHERE "
    "Companies.CompanyID=";
constexpr const char* companyPhone =
    "SELECT Companies.CompanyID, Companies.OfficeNumber From Companies WHERE "
    "Companies.CompanyID=";

void replaceUnlessEmpty(std::string& target, std::string text) {
  if (!text.empty()) target = std::move(text);
}

std::string emailOf(const Row& person) {
  std::string email = person.text("BusinessEmail");
  return email.empty() ? person.text("PersonalEmail") : email;
}

/// Runs `use` on each default contact of a company, who may be several by mistake.
template <class Use>
void forDefaultContacts(Step& step, const char* statement, Id companyID, Use use) {
  const std::string sql = statement + std::to_string(companyID);
  for (const Row& person : Rows(step, sql + " AND ContactLinks.DefaultContact=True;", keysetRead)) {
    if (person.flag("DefaultContact")) use(person);
  }
}

void findContact(Step& step, Id contactID, DefaultRecipients& found) {
  const Rows contact(step, contactById, contactID, keysetRead);
  if (!contact) return;
  found.email = emailOf(contact);
  found.fax = contact.text("BusinessPhone_Fax");
  found.faxName = contact.text("DisplayName");
  found.phoneName = found.faxName;
  found.phone = contact.text("BusinessPhone_Main");
}

void findCompanyEmail(Step& step, Id companyID, DefaultRecipients& found) {
  bool isFirst = true;
  forDefaultContacts(step, contactEmails, companyID, [&](const Row& person) {
    if (std::exchange(isFirst, false)) found.email = emailOf(person);
  });
  if (!found.email.empty()) return;
  if (const Rows company(step, companyEmail, companyID, keysetRead); company)
    found.email = company.text("Email");
}

void findCompanyFax(Step& step, Id companyID, DefaultRecipients& found) {
  if (const Rows company(step, companyFax, companyID, keysetRead); company) {
    found.fax = company.text("FaxNumber");
    found.faxName = company.text("CompanyName");
  }
  forDefaultContacts(step, contactFaxes, companyID, [&](const Row& person) {
    const std::string name = person.text("DisplayName");
    const std::string before = found.faxName.empty() ? "" : found.faxName + " c/o ";
    if (!name.empty()) found.faxName = before + name;
    replaceUnlessEmpty(found.fax, person.text("BusinessPhone_Fax"));
  });
}

void findCompanyPhone(Step& step, Id companyID, DefaultRecipients& found) {
  if (const Rows company(step, companyPhone, companyID, keysetRead); company)
    found.phone = company.text("OfficeNumber");
  forDefaultContacts(step, contactPhones, companyID, [&](const Row& person) {
    found.phoneName = person.text("DisplayName");
    replaceUnlessEmpty(found.phone, person.text("BusinessPhone_Main"));
  });
}

}  // namespace

DefaultRecipients findDefaultRecipients(Step& step, const BulkClient& client) {
  DefaultRecipients found;
  if (client.isContact()) {
    findContact(step, client.contactID, found);
  } else {
    findCompanyEmail(step, client.companyID, found);
    findCompanyFax(step, client.companyID, found);
    findCompanyPhone(step, client.companyID, found);
  }
  return found;
}

}  // namespace autonotify
