#include "channels/recipients.h"

#include <array>

#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"

namespace autonotify {
namespace {

/// Columns of which the first that is not empty counts.
using Columns = std::array<const char*, 2>;

/// Where a channel reads its recipient.
struct RecipientSource {
  /// The statement for the company's own row.
  const char* company;
  /// What is selected of a company's default contact, and where its address or number stands.
  const char* defaultContact;
  Columns ofDefaultContact;
  /// The statement for a contact, and where its address or number stands.
  const char* contact;
  Columns ofContact;
};

// Schedule entries.

constexpr RecipientSource entryEmail{
    "SELECT Companies.CompanyID, Companies.Email From Companies WHERE CompanyID=",
    "Contacts.BusinessEmail, Contacts.PersonalEmail",
    {"BusinessEmail", "PersonalEmail"},
    "SELECT Contacts.BusinessEmail, Contacts.PersonalEmail, Contacts.ContactID FROM Contacts WHERE "
    "Contacts.ContactID = ",
    {"BusinessEmail", "PersonalEmail"}};
constexpr RecipientSource entryFax{
    "SELECT Companies.CompanyID, Companies.FaxNumber, Companies.CompanyName From Companies WHERE "
    "CompanyID=",
    "Contacts.DisplayName, Contacts.BusinessPhone_Fax",
    {"BusinessPhone_Fax"},
    "SELECT Contacts.DisplayName, Contacts.BusinessPhone_Fax, Contacts.ContactID FROM Contacts "
    "WHERE Contacts.ContactID = ",
    {"BusinessPhone_Fax"}};
constexpr RecipientSource entryPhone{
    "SELECT Companies.CompanyID, Companies.OfficeNumber From Companies WHERE CompanyID=",
    "Contacts.DisplayName, Contacts.BusinessPhone_Main",
    {"BusinessPhone_Main"},
    "SELECT Contacts.DisplayName, Contacts.BusinessPhone_Main, Contacts.ContactID FROM Contacts "
    "WHERE Contacts.ContactID = ",
    {"BusinessPhone_Main"}};

// Diary items.

constexpr RecipientSource itemEmail{
    entryEmail.company,
    entryEmail.defaultContact,
    entryEmail.ofDefaultContact,
    "SELECT Contacts.ContactID, Contacts.BusinessEmail, Contacts.PersonalEmail From Contacts WHERE "
    "ContactID=",
    {"BusinessEmail", "PersonalEmail"}};
constexpr RecipientSource itemFax{
    "SELECT Companies.CompanyID, Companies.CompanyName, Companies.FaxNumber From Companies WHERE "
    "CompanyID=",
    entryFax.defaultContact,
    entryFax.ofDefaultContact,
    "SELECT Contacts.ContactID, Contacts.DisplayName, Contacts.HomePhone_Fax FROM Contacts WHERE "
    "ContactID=",
    {"HomePhone_Fax"}};
constexpr RecipientSource itemPhone{
    "SELECT Companies.companyID, Companies.OfficeNumber From Companies WHERE CompanyID=",
    entryPhone.defaultContact,
    entryPhone.ofDefaultContact,
    "SELECT Contacts.ContactID, Contacts.DisplayName, Contacts.HomePhone_Main, "
    "Contacts.BusinessPhone_Main FROM Contacts WHERE ContactID=",
    {"HomePhone_Main", "BusinessPhone_Main"}};

/// Who receives, and how that is read.
struct Recipient {
  const NotificationClient& client;
  const RecipientSource& source;
  /// The rows of default contacts are walked to one that is marked so. For a diary item, whose
  /// client may be nobody.
  bool isOfItem;

  const Columns& columns() const {
    return client.isCompany() ? source.ofDefaultContact : source.ofContact;
  }
};

constexpr const char* firmAndFaxNumber =
    "SELECT AccountantFirmInfo.CompanyName, AccountantFirmInfo.FaxNumber FROM AccountantFirmInfo;";

std::string defaultContactStatement(const Recipient& recipient) {
  return std::string("SELECT ") + recipient.source.defaultContact +
         ", ContactLinks.CompanyNum, ContactLinks.DefaultContact "
         "FROM Contacts INNER JOIN ContactLinks ON Contacts.ContactID = "
         "ContactLinks.ContactIDNum WHERE ContactLinks.CompanyNum = " +
         std::to_string(recipient.client.companyId) + " AND ContactLinks.DefaultContact=True;";
}

/// The rows among which the person stands who receives: a company's default contact, or the contact
/// itself.
Rows openPerson(Step& step, const Recipient& recipient) {
  const auto& [client, source, isOfItem] = recipient;
  if (client.isCompany()) return Rows(step, defaultContactStatement(recipient), keysetRead);
  if (client.isContact() || isOfItem)
    return Rows(step, source.contact, client.contactId, keysetRead);
  return Rows(step, std::string{}, keysetRead);
}

/// True when the rows hold the person, on whom they stand then.
bool findPerson(Rows& rows, const Recipient& recipient) {
  const bool isMarked = recipient.isOfItem && recipient.client.isCompany();
  if (!isMarked) return static_cast<bool>(rows);
  for (const Row& row : rows) {
    if (row.flag("DefaultContact")) return true;
  }
  return false;
}

/// The company's own row; for no company nothing is opened.
Rows openCompany(Step& step, const Recipient& recipient) {
  return Rows(step, recipient.source.company, recipient.client.companyId, keysetRead);
}

/// The column's text, empty when the statement is skipped.
std::string readColumnText(const Row& row, const char* column) {
  const Value value = row.value(column);
  if (isEmpty(row.step(), value)) return {};
  return row.step().value(std::string{}, toText, value);
}

/// The first of the columns that is not empty, or `fallback`.
std::string firstTextOr(const Row& row, const Columns& columns, const std::string& fallback) {
  std::string text;
  for (const char* column : columns) {
    if (column && text.empty()) text = readColumnText(row, column);
  }
  return text.empty() ? fallback : text;
}

ChannelFields emailFields(Step& step, const Recipient& recipient) {
  std::string to;
  if (Rows person = openPerson(step, recipient); findPerson(person, recipient))
    to = firstTextOr(person, recipient.columns(), {});
  if (to.empty()) {
    if (Rows company = openCompany(step, recipient); company) to = company.text("Email");
  }
  return {{"Field1", to}};
}

ChannelFields faxFields(Step& step, const Recipient& recipient) {
  std::string from, senderFax;
  if (Rows firm(step, firmAndFaxNumber, keysetRead); firm) {
    from = firm.text("CompanyName");
    senderFax = firm.text("FaxNumber");
  }
  std::string to, companyFax, receiverFax;
  if (Rows company = openCompany(step, recipient); company) {
    to = company.text("CompanyName");
    companyFax = company.text("FaxNumber");
  }
  if (Rows person = openPerson(step, recipient); findPerson(person, recipient)) {
    const std::string name = readColumnText(person, "DisplayName");
    if (!name.empty()) to = to.empty() ? name : to + " c/o " + name;
    receiverFax = firstTextOr(person, recipient.columns(), companyFax);
  }
  return {{"Field1", to},
          {"Field2", from},
          {"Field3", senderFax},
          {"Field4", receiverFax},
          {"Field5", "1 (including cover page)"}};
}

ChannelFields phoneFields(Step& step, const Recipient& recipient) {
  std::string officeNumber, to, number;
  if (Rows company = openCompany(step, recipient); company)
    officeNumber = company.text("OfficeNumber");
  if (Rows person = openPerson(step, recipient); findPerson(person, recipient)) {
    to = person.text("DisplayName");
    number = firstTextOr(person, recipient.columns(), officeNumber);
  }
  return {{"Field1", to}, {"Field2", number}};
}

std::string companyItem(Id companyId, std::int16_t item) {
  return clients().getCompanyInfoItem(companyId, item);
}
std::string contactItem(Id contactId, std::int16_t item) {
  return clients().getContactInfoItem(contactId, item);
}

/// The one of the two clients that the client list knows.
NotificationClient listedClient(Step& step, const NotificationClient& given) {
  if (isListedCompany(step, given.companyId)) return {.companyId = given.companyId};
  if (isListedContact(step, given.contactId)) return {.contactId = given.contactId};
  return {};
}

}  // namespace

NotificationClient clientOfScheduleEntry(Step& step, Id scheduleId) {
  const Id company = getCompanyIDFromScheduleID(scheduleId);
  if (isListedCompany(step, company)) return {.companyId = company};
  const Id contact = getContactIDFromScheduleID(scheduleId);
  if (isListedContact(step, contact)) return {.contactId = contact};
  return {};
}

ChannelFields emailFields(Step& step, const NotificationClient& client) {
  return emailFields(step, Recipient{client, entryEmail, false});
}
ChannelFields faxFields(Step& step, const NotificationClient& client) {
  return faxFields(step, Recipient{client, entryFax, false});
}
ChannelFields phoneFields(Step& step, const NotificationClient& client) {
  return phoneFields(step, Recipient{client, entryPhone, false});
}

ChannelFields listedEmailFields(Step& step, const NotificationClient& client) {
  std::string to;
  if (client.isCompany()) {
    step.assign(to, companyItem, client.companyId, info_item::defaultContactEmail);
    if (to.empty()) step.assign(to, companyItem, client.companyId, info_item::email);
  } else if (client.isContact()) {
    step.assign(to, contactItem, client.contactId, info_item::email);
  }
  return {{"Field1", to}};
}

ChannelFields itemEmailFields(Step& step, const NotificationClient& given) {
  const NotificationClient client = listedClient(step, given);
  return emailFields(step, Recipient{client, itemEmail, true});
}
ChannelFields itemFaxFields(Step& step, const NotificationClient& given) {
  const NotificationClient client = listedClient(step, given);
  return faxFields(step, Recipient{client, itemFax, true});
}
ChannelFields itemPhoneFields(Step& step, const NotificationClient& given) {
  const NotificationClient client = listedClient(step, given);
  return phoneFields(step, Recipient{client, itemPhone, true});
}

ChannelFields letterFields(Step&, const NotificationClient&) {
  return {};
}

}  // namespace autonotify
