#include "host/desk/work/recipient_names.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <map>

#include "host/clients/record_rows.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

struct AddressColumns {
  const char* table;
  const char* name;
  std::vector<const char*> addresses;
  bool isOfFirm = false;
};

/// The first table that has an address tells whose it is.
const std::vector<AddressColumns>& addressColumns() {
  static const std::vector<AddressColumns> columns{
      {"AccountantEmployeeInfo", "DisplayName", {"BusinessEmail", "PersonalEmail"}, true},
      {"AccountantFirmInfo", "CompanyName", {"Email"}, true},
      {"Contacts", "DisplayName", {"BusinessEmail", "PersonalEmail"}},
      {"Contacts", "SpouseName", {"SpouseEmail"}},
      {"Companies", "CompanyName", {"Email"}}};
  return columns;
}

using NamesByAddress = std::map<std::string, NamedAddress>;

void readNames(Desk& desk, const AddressColumns& columns, const std::string& sought,
               NamesByAddress& names) {
  for (const char* address : columns.addresses) {
    const std::string sql =
        fmt::format("SELECT {0}.{1}, {0}.{2} FROM {0} WHERE LOWER({0}.{2}) IN ({3});",
                    columns.table, columns.name, address, sought);
    forEachRow(desk.database(), sql, [&](const Row& row) {
      const std::string found = row.text(address);
      names.try_emplace(lowerCase(found),
                        NamedAddress{found, row.text(columns.name), columns.isOfFirm});
    });
  }
}

}  // namespace

std::vector<NamedAddress> nameAddresses(Desk& desk, const std::vector<std::string>& addresses) {
  if (addresses.empty()) return {};
  std::vector<std::string> sought;
  sought.reserve(addresses.size());
  for (const std::string& address : addresses)
    sought.push_back("'" + desk.database().formatTextForSQL(lowerCase(address)) + "'");
  NamesByAddress names;
  for (const AddressColumns& columns : addressColumns())
    readNames(desk, columns, fmt::format("{}", fmt::join(sought, ", ")), names);
  std::vector<NamedAddress> named;
  named.reserve(addresses.size());
  for (const std::string& address : addresses) {
    const auto found = names.find(lowerCase(address));
    const bool isKnown = found != names.end();
    named.push_back(
        {address, isKnown ? found->second.name : "", isKnown && found->second.isOfFirm});
  }
  return named;
}

}  // namespace autonotify::host
