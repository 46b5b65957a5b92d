#include "host/desk/work/client_contacts.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/clients/record_rows.h"

namespace autonotify::host {
namespace {

struct ClientTable {
  enumAutoNotifyClientType type;
  const char* word;
  /// With "{}" for the id.
  const char* statement;
};
constexpr ClientTable tables[] = {
    {enumAutoNotifyCompany, "company",
     "SELECT Companies.CompanyID FROM Companies WHERE Companies.CompanyID={};"},
    {enumAutoNotifyContact, "contact",
     "SELECT Contacts.ContactID FROM Contacts WHERE Contacts.ContactID={};"},
};

/// Null for the firm.
const ClientTable* tableOf(const Client& client) {
  const auto* found = std::ranges::find(tables, client.type, &ClientTable::type);
  return found == std::end(tables) ? nullptr : found;
}

Client companyOf(Id id) {
  return {enumAutoNotifyCompany, id};
}

}  // namespace

std::string subjectOf(const Client& client) {
  const ClientTable* table = tableOf(client);
  return table ? fmt::format("{} {}", table->word, client.id) : "firm";
}

Outcome<Client> requireClient(Desk& desk, const Client& client) {
  const ClientTable* table = tableOf(client);
  if (!table) return client;
  const std::string sql = fmt::format(fmt::runtime(table->statement), client.id);
  if (firstRow(desk.database(), sql, [](const Row&) {})) return client;
  return Refused{Refused::Why::notThere, subjectOf(client)};
}

Outcome<std::string> composeAddress(Desk& desk, const AddressWish& wish) {
  return askComponent(desk, subjectOf(Client{wish.clientType, wish.id}),
                      [&] { return desk.tools().composeAddress(wish); });
}

Outcome<RecipientOffer> listRecipients(Desk& desk, const Client& client, RecipientKind kind) {
  return askComponent(desk, subjectOf(client),
                      [&] { return desk.tools().listRecipients(client.type, client.id, kind); });
}

Outcome<DefaultContact> findDefaultContact(Desk& desk, Id company) {
  if (const auto known = requireClient(desk, companyOf(company)); !known) return known.refused();
  const auto contact = askComponent(desk, subjectOf(companyOf(company)),
                                    [&] { return desk.tools().checkForDefaultContact(company); });
  if (!contact) return contact.refused();
  return DefaultContact{
      desk.clients().getCompanyDisplayName(company), *contact,
      *contact < 0 ? std::string() : desk.clients().getContactDisplayName(*contact)};
}

Outcome<bool> setDefaultContact(Desk& desk, Id company, Id contact) {
  if (const auto known = requireClient(desk, companyOf(company)); !known) return known.refused();
  return askComponent(desk, subjectOf(companyOf(company)),
                      [&] { return desk.tools().setDefaultContact(company, contact); });
}

}  // namespace autonotify::host
