#include "host/desk/work/people_list.h"

#include "host/desk/rows/readable_rows.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr const char* companyRows =
    "SELECT ClientData.ClientDataID, Companies.CompanyID, Companies.CompanyName, "
    "Companies.ClientIDStr, Companies.OfficeNumber, Companies.Email, Companies.AccountantName FROM "
    "ClientData INNER JOIN Companies ON ClientData.CompanyIDNum = Companies.CompanyID ORDER BY "
    "Companies.CompanyName;";
constexpr const char* personRows =
    "SELECT Clients.ClientID, Contacts.ContactID, Contacts.DisplayName, Contacts.ClientIDStr, "
    "Contacts.HomePhone_Main, Contacts.PersonalEmail, Contacts.AccountantName FROM Clients INNER "
    "JOIN Contacts ON Clients.ContactIDNum = Contacts.ContactID ORDER BY Contacts.DisplayName;";
constexpr const char* staffRows =
    "SELECT ContactID, DisplayName, BusinessJobTitle, BusinessPhone_Main, BusinessEmail, UserLevel "
    "FROM AccountantEmployeeInfo ORDER BY DisplayName;";

bool isMeant(const std::string& text, const std::string& name, const std::string& number) {
  return text.empty() || findIgnoreCase(name, text) != text.npos ||
         findIgnoreCase(number, text) != text.npos;
}

ClientLine readCompany(const Row& row) {
  return {row.id("ClientDataID"),  row.id("CompanyID"),       noId,
          row.text("ClientIDStr"), row.text("CompanyName"),   row.text("OfficeNumber"),
          row.text("Email"),       row.text("AccountantName")};
}

ClientLine readPerson(const Row& row) {
  return {noId,
          noId,
          row.id("ContactID"),
          row.text("ClientIDStr"),
          row.text("DisplayName"),
          row.text("HomePhone_Main"),
          row.text("PersonalEmail"),
          row.text("AccountantName")};
}

}  // namespace

UnreadableRows listClients(Desk& desk, const std::string& text,
                           const std::function<void(const ClientLine&)>& tell) {
  UnreadableRows unreadable;
  const auto list = [&](const char* table, const char* rows, ClientLine (*read)(const Row&)) {
    forEachRow(desk.database(), rows, [&](const Row& row) {
      unreadable.orName([&] {
        const ClientLine line = readRow(table, row, read);
        if (isMeant(text, line.name, line.number)) tell(line);
      });
    });
  };
  list("ClientData", companyRows, readCompany);
  list("Clients", personRows, readPerson);
  return unreadable;
}

std::size_t countClients(Desk& desk) {
  return countRows(desk.database(),
                   "ClientData INNER JOIN Companies ON ClientData.CompanyIDNum = "
                   "Companies.CompanyID") +
         countRows(desk.database(),
                   "Clients INNER JOIN Contacts ON Clients.ContactIDNum = Contacts.ContactID");
}

UnreadableRows listStaff(Desk& desk, const std::string& text,
                         const std::function<void(const StaffLine&)>& tell) {
  UnreadableRows unreadable;
  const auto read = [](const Row& row) {
    return StaffLine{row.id("ContactID"),          row.text("DisplayName"),
                     row.text("BusinessJobTitle"), row.text("BusinessPhone_Main"),
                     row.text("BusinessEmail"),    row.id("UserLevel")};
  };
  forEachRow(desk.database(), staffRows, [&](const Row& row) {
    unreadable.orName([&] {
      const StaffLine line = readRow("AccountantEmployeeInfo", row, read);
      if (isMeant(text, line.name, {})) tell(line);
    });
  });
  return unreadable;
}

}  // namespace autonotify::host
