#include "store/channels/recipients.h"

#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"

namespace autonotify {
namespace {

/// The people of the client: a company's default contact, or the contact itself. Empty for nobody.
std::string peopleStatement(const std::string& columns, const NotificationClient& client) {
  if (client.isCompany()) {
    return "SELECT " + columns +
           ", ContactLinks.CompanyNum, ContactLinks.DefaultContact "
           "FROM Contacts INNER JOIN ContactLinks ON Contacts.ContactID = "
           "ContactLinks.ContactIDNum WHERE ContactLinks.CompanyNum = " +
           std::to_string(client.companyId) + " AND ContactLinks.DefaultContact=True;";
  }
  if (client.isContact()) {
    return "SELECT " + columns + ", Contacts.ContactID FROM Contacts WHERE Contacts.ContactID = " +
           std::to_string(client.contactId) + ";";
  }
  return {};
}

template <class Body>
void withFirstPerson(Step& step, const char* columns, const NotificationClient& client,
                     Body&& body) {
  withFirstRow(step, peopleStatement(columns, client), keysetRead, body);
}

template <class Body>
void withCompany(Step& step, const char* statement, const NotificationClient& client, Body&& body) {
  if (!client.isCompany()) return;
  withFirstRow(step, statementFor(statement, client.companyId), keysetRead, body);
}

/// The column's text, or `fallback` when it is empty.
std::string textOr(Step& step, RecordsetHandle handle, const char* column, std::string fallback) {
  const Value value = readField(step, handle, column);
  if (isEmpty(step, value)) return fallback;
  return step.value(std::move(fallback), [&] { return toText(value); });
}

std::string companyItem(Step& step, Id companyId, std::int16_t item) {
  return step.value(std::string{}, [&] { return clients().getCompanyInfoItem(companyId, item); });
}

}  // namespace

NotificationClient clientOfScheduleEntry(Step& step, Id scheduleId) {
  const Id company = getCompanyIDFromScheduleID(scheduleId);
  if (company >= 0 && step.value(false, [&] { return clients().isCompanyClient(company); })) {
    return {.companyId = company};
  }
  const Id contact = getContactIDFromScheduleID(scheduleId);
  if (contact >= 0 && step.value(false, [&] { return clients().isContactClient(contact); })) {
    return {.contactId = contact};
  }
  return {};
}

ChannelFields emailFields(Step& step, const NotificationClient& client) {
  std::string to;
  withFirstPerson(step, "Contacts.BusinessEmail, Contacts.PersonalEmail", client,
                  [&](RecordsetHandle handle) {
                    to = textOr(step, handle, "BusinessEmail", {});
                    if (to.empty()) to = textOr(step, handle, "PersonalEmail", {});
                  });
  if (to.empty()) {
    withCompany(step, "SELECT Companies.CompanyID, Companies.Email From Companies WHERE CompanyID=",
                client, [&](RecordsetHandle handle) { to = readText(step, handle, "Email"); });
  }
  return {{"Field1", to}};
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

ChannelFields faxFields(Step& step, const NotificationClient& client) {
  std::string from, senderFax;
  withFirstRow(step,
               "SELECT AccountantFirmInfo.CompanyName, AccountantFirmInfo.FaxNumber FROM "
               "AccountantFirmInfo;",
               keysetRead, [&](RecordsetHandle handle) {
                 from = readText(step, handle, "CompanyName");
                 senderFax = readText(step, handle, "FaxNumber");
               });
  std::string to, companyFax;
  withCompany(step,
              "SELECT Companies.CompanyID, Companies.FaxNumber, Companies.CompanyName From "
              "Companies WHERE CompanyID=",
              client, [&](RecordsetHandle handle) {
                to = readText(step, handle, "CompanyName");
                companyFax = readText(step, handle, "FaxNumber");
              });
  std::string receiverFax;
  withFirstPerson(step, "Contacts.DisplayName, Contacts.BusinessPhone_Fax", client,
                  [&](RecordsetHandle handle) {
                    const std::string name = textOr(step, handle, "DisplayName", {});
                    if (!name.empty()) to = to.empty() ? name : to + " c/o " + name;
                    receiverFax = textOr(step, handle, "BusinessPhone_Fax", companyFax);
                  });
  return {{"Field1", to},
          {"Field2", from},
          {"Field3", senderFax},
          {"Field4", receiverFax},
          {"Field5", "1 (including cover page)"}};
}

ChannelFields phoneFields(Step& step, const NotificationClient& client) {
  std::string officeNumber;
  withCompany(
      step,
      "SELECT Companies.CompanyID, Companies.OfficeNumber From Companies WHERE CompanyID=", client,
      [&](RecordsetHandle handle) { officeNumber = readText(step, handle, "OfficeNumber"); });
  std::string to, number;
  withFirstPerson(step, "Contacts.DisplayName, Contacts.BusinessPhone_Main", client,
                  [&](RecordsetHandle handle) {
                    to = readText(step, handle, "DisplayName");
                    number = textOr(step, handle, "BusinessPhone_Main", officeNumber);
                  });
  return {{"Field1", to}, {"Field2", number}};
}

ChannelFields letterFields(Step&, const NotificationClient&) {
  return {};
}

}  // namespace autonotify
