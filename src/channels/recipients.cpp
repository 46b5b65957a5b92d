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

std::string defaultContactStatement(const Recipient& recipient) {
  return std::string("SELECT ") + recipient.source.defaultContact +
         ", ContactLinks.CompanyNum, ContactLinks.DefaultContact "
         "FROM Contacts INNER JOIN ContactLinks ON Contacts.ContactID = "
         "ContactLinks.ContactIDNum WHERE ContactLinks.CompanyNum = " +
         std::to_string(recipient.client.companyId) + " AND ContactLinks.DefaultContact=True;";
}

template <class Body>
void withMarkedDefaultContact(Step& step, const Recipient& recipient, Body&& body) {
  forEachRow(step, defaultContactStatement(recipient), keysetRead, [&](RecordsetHandle handle) {
    const bool isDefault = readFlag(step, handle, "DefaultContact");
    if (isDefault) body(handle);
    return !isDefault;
  });
}

/// The person who receives: a company's default contact, or the contact itself.
template <class Body>
void withPerson(Step& step, const Recipient& recipient, Body&& body) {
  const NotificationClient& client = recipient.client;
  if (recipient.isOfItem && client.isCompany()) {
    withMarkedDefaultContact(step, recipient, body);
  } else if (client.isCompany()) {
    withFirstRow(step, defaultContactStatement(recipient), keysetRead, body);
  } else if (client.isContact()) {
    withRow(step, recipient.source.contact, client.contactId, keysetRead, body);
  } else if (!recipient.isOfItem) {
    withFirstRow(step, std::string{}, keysetRead, body);
  }
}

template <class Body>
void withCompany(Step& step, const Recipient& recipient, Body&& body) {
  const NotificationClient& client = recipient.client;
  if (!client.isCompany()) return;
  withRow(step, recipient.source.company, client.companyId, keysetRead, body);
}

/// The column's text, or `fallback` when it is empty.
std::string textOr(Step& step, RecordsetHandle handle, const char* column, std::string fallback) {
  const Value value = readField(step, handle, column);
  if (isEmpty(step, value)) return fallback;
  return step.value(std::move(fallback), [&] { return toText(value); });
}

/// The first of the columns that is not empty, or `fallback`.
std::string firstTextOr(Step& step, RecordsetHandle handle, const Columns& columns,
                        const std::string& fallback) {
  std::string text;
  for (const char* column : columns) {
    if (column && text.empty()) text = textOr(step, handle, column, {});
  }
  return text.empty() ? fallback : text;
}

ChannelFields emailFields(Step& step, const Recipient& recipient) {
  std::string to;
  withPerson(step, recipient, [&](RecordsetHandle handle) {
    to = firstTextOr(step, handle, recipient.columns(), {});
  });
  if (to.empty()) {
    withCompany(step, recipient,
                [&](RecordsetHandle handle) { to = readText(step, handle, "Email"); });
  }
  return {{"Field1", to}};
}

ChannelFields faxFields(Step& step, const Recipient& recipient) {
  std::string from, senderFax;
  withFirstRow(step,
               "SELECT AccountantFirmInfo.CompanyName, AccountantFirmInfo.FaxNumber FROM "
               "AccountantFirmInfo;",
               keysetRead, [&](RecordsetHandle handle) {
                 from = readText(step, handle, "CompanyName");
                 senderFax = readText(step, handle, "FaxNumber");
               });
  std::string to, companyFax;
  withCompany(step, recipient, [&](RecordsetHandle handle) {
    to = readText(step, handle, "CompanyName");
    companyFax = readText(step, handle, "FaxNumber");
  });
  std::string receiverFax;
  withPerson(step, recipient, [&](RecordsetHandle handle) {
    const std::string name = textOr(step, handle, "DisplayName", {});
    if (!name.empty()) to = to.empty() ? name : to + " c/o " + name;
    receiverFax = firstTextOr(step, handle, recipient.columns(), companyFax);
  });
  return {{"Field1", to},
          {"Field2", from},
          {"Field3", senderFax},
          {"Field4", receiverFax},
          {"Field5", "1 (including cover page)"}};
}

ChannelFields phoneFields(Step& step, const Recipient& recipient) {
  std::string officeNumber;
  withCompany(step, recipient, [&](RecordsetHandle handle) {
    officeNumber = readText(step, handle, "OfficeNumber");
  });
  std::string to, number;
  withPerson(step, recipient, [&](RecordsetHandle handle) {
    to = readText(step, handle, "DisplayName");
    number = firstTextOr(step, handle, recipient.columns(), officeNumber);
  });
  return {{"Field1", to}, {"Field2", number}};
}

std::string companyItem(Step& step, Id companyId, std::int16_t item) {
  return step.value(std::string{}, [&] { return clients().getCompanyInfoItem(companyId, item); });
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
    to = companyItem(step, client.companyId, info_item::defaultContactEmail);
    if (to.empty()) to = companyItem(step, client.companyId, info_item::email);
  } else if (client.isContact()) {
    step.assign(to,
                [&] { return clients().getContactInfoItem(client.contactId, info_item::email); });
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
