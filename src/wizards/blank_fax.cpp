#include "wizards/blank_fax.h"

#include "contract/enumerations.h"

namespace autonotify {
namespace {

constexpr const char* firmStatement = "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo;";
constexpr const char* companies = "SELECT Companies.* From Companies;";
constexpr const char* linkedContacts =
    "SELECT Contacts.DisplayName, Contacts.BusinessPhone_Fax, ContactLinks.CompanyNum, "
    "ContactLinks.DefaultContact FROM Contacts INNER JOIN ContactLinks ON Contacts.ContactID = "
    "ContactLinks.ContactIDNum WHERE ContactLinks.CompanyNum = ";
constexpr const char* contactById = "SELECT Contacts.* From Contacts WHERE Contacts.ContactID = ";

void setSender(Step& step, NewRow& row) {
  if (const Rows firm(step, firmStatement, keysetRead); firm) {
    row.set("Field2", firm.text("CompanyName"));
    row.set("Field3", firm.text("FaxNumber"));
  }
}

/// False when there is nothing to write.
bool setUnlessEmpty(Step& step, NewRow& row, const char* column, const Value& value) {
  if (isEmpty(step, value)) return false;
  row.set(column, value);
  return true;
}

/// The first of the two numbers that is known.
void setNumber(Step& step, NewRow& row, const Value& number, const Value& otherwise) {
  setUnlessEmpty(step, row, "Field4", number) || setUnlessEmpty(step, row, "Field4", otherwise);
}

/// The person's name, empty when it is not known.
std::string personName(const Row& person) {
  const Value name = person.value("DisplayName");
  if (isEmpty(person.step(), name)) return {};
  return person.step().value(std::string{}, toText, name);
}

/// Stands on the default contact afterwards; False when there is none.
bool findDefaultContact(Rows& contacts) {
  for (const Row& contact : contacts) {
    if (contact.flag("DefaultContact")) return true;
  }
  return false;
}

/// Writes the number of a company's recipient and gives the name.
std::string addressCompany(Step& step, NewRow& row, Id companyID) {
  Value companyNumber;
  std::string name;
  if (const Rows company(step, companies, keysetRead);
      company && step.holds(findRecord, company.handle(), "CompanyID", std::to_string(companyID))) {
    companyNumber = company.value("FaxNumber");
    name = company.text("CompanyName");
  }
  if (Rows contact(step, linkedContacts, companyID, keysetRead); findDefaultContact(contact)) {
    const std::string person = personName(contact);
    if (!person.empty()) name = name.empty() ? person : name + " c/o " + person;
    setNumber(step, row, contact.value("BusinessPhone_Fax"), companyNumber);
  }
  return name;
}

/// The same for a contact.
std::string addressContact(Step& step, NewRow& row, Id contactID) {
  std::string name;
  if (const Rows contact(step, contactById, contactID, keysetRead); contact) {
    name = personName(contact);
    setUnlessEmpty(step, row, "Field4", contact.value("BusinessPhone_Fax"));
  }
  return name;
}

std::string addressClient(Step& step, NewRow& row, const CompanyAndContactID& client) {
  if (isListedCompany(step, client.companyId)) return addressCompany(step, row, client.companyId);
  if (isListedContact(step, client.contactId)) return addressContact(step, row, client.contactId);
  return {};
}

}  // namespace

void fillBlankFax(Step& step, NewRow& row, const CompanyAndContactID& client) {
  row.set("NotificationType", int{nt_Fax});
  row.set("NotificationDate", [] { return platformClock().today(); });
  row.set("Field5", "1 (including cover page)");
  row.set("CompanyIDNum", client.companyId);
  row.set("ContactIDNum", client.contactId);
  setSender(step, row);
  row.set("Field1", addressClient(step, row, client));
}

}  // namespace autonotify
