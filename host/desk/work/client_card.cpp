#include "host/desk/work/client_card.h"

#include <fmt/format.h>

#include "host/desk/rows/client_names.h"

namespace autonotify::host {
namespace {

struct CardColumns {
  const char* table;
  const char* key;
  /// The first one that is filled counts.
  const char* emails[2];
  const char* phones[3];
};
constexpr CardColumns companyColumns{
    "Companies",
    "CompanyID",
    {"Email", "DefaultContactEmail"},
    {"OfficeNumber", "AltPhoneNumber", "DefaultContactPhoneNumber"}};
constexpr CardColumns contactColumns{"Contacts",
                                     "ContactID",
                                     {"BusinessEmail", "PersonalEmail"},
                                     {"BusinessPhone_Main", "HomePhone_Main", "HomePhone_Cell"}};

template <std::size_t count>
std::string firstFilled(const Row& row, const char* const (&columns)[count]) {
  for (const char* column : columns)
    if (std::string text = row.text(column); !text.empty()) return text;
  return {};
}

}  // namespace

ClientCard readClientCard(Desk& desk, const Client& client) {
  const bool isCompany = client.type == enumAutoNotifyCompany;
  const CardColumns& columns = isCompany ? companyColumns : contactColumns;
  ClientCard card;
  card.name = clientName(desk, isCompany ? client.id : noId, isCompany ? noId : client.id);
  const std::string sql = fmt::format("SELECT {0}.* FROM {0} WHERE {0}.{1}={2};", columns.table,
                                      columns.key, client.id);
  firstRow(desk.database(), sql, [&](const Row& row) {
    card.number = row.text("ClientIDStr");
    card.accountant = row.text("AccountantName");
    card.email = firstFilled(row, columns.emails);
    card.phone = firstFilled(row, columns.phones);
  });
  return card;
}

Client clientOf(const Notification& row) {
  if (row.companyId > 0) return {enumAutoNotifyCompany, row.companyId};
  return {enumAutoNotifyContact, row.contactId};
}

Client clientOf(Desk& desk, const Task& task) {
  if (task.clientNum < 0) return {enumAutoNotifyContact, task.contactId};
  return {enumAutoNotifyCompany, companyOf(desk, task)};
}

}  // namespace autonotify::host
