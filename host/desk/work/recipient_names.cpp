#include "host/desk/work/recipient_names.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <map>
#include <set>
#include <string_view>

#include "host/clients/record_rows.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

using Columns = std::vector<const char*>;

struct Owners {
  const char* table;
  const char* name;
  Columns emails, numbers;
  bool isOfFirm = false;
};

/// The first ones that have an address tell whose it is.
const std::vector<Owners>& allOwners() {
  static const Columns emails{"BusinessEmail", "PersonalEmail"};
  static const Columns staffNumbers{"BusinessPhone_Fax", "HomePhone_Fax"};
  static const Columns numbers{
      "BusinessPhone_Fax",      "HomePhone_Fax",         "BusinessPhone_Main", "BusinessPhone_Cell",
      "BusinessPhone_Pager",    "HomePhone_Main",        "HomePhone_Cell",     "HomePhone_Pager",
      "BusinessAltPhoneNumber", "PersonalAltPhoneNumber"};
  static const std::vector<Owners> owners{
      {"AccountantEmployeeInfo", "DisplayName", emails, staffNumbers, true},
      {"AccountantFirmInfo", "CompanyName", {"Email"}, {"FaxNumber"}, true},
      {"Contacts", "DisplayName", emails, numbers},
      {"Contacts", "SpouseName", {"SpouseEmail"}, {"SpousePhone_Main", "SpousePhone_Cell"}},
      {"Companies", "CompanyName", {"Email"}, {"OfficeNumber", "FaxNumber"}}};
  return owners;
}

/// Those who share an address, of the first owners that have it.
struct Known {
  const Owners* owners;
  std::set<std::string> names;
};
using KnownAddresses = std::map<std::string, Known>;

bool isEmail(const std::string& address) {
  return address.find('@') != std::string::npos;
}

/// What the tables hold of it: the lists have the kind of a number behind it.
std::string keyOf(const std::string& address) {
  return lowerCase(isEmail(address) ? address : address.substr(0, address.find(" <")));
}

std::string soughtOf(Desk& desk, const std::vector<std::string>& addresses, bool areEmails) {
  std::set<std::string> sought;
  for (const std::string& address : addresses)
    if (isEmail(address) == areEmails)
      sought.insert("'" + desk.database().formatTextForSQL(keyOf(address)) + "'");
  return fmt::format("{}", fmt::join(sought, ", "));
}

void readNames(Desk& desk, const Owners& owners, const char* column, const std::string& sought,
               KnownAddresses& known) {
  const std::string sql =
      fmt::format("SELECT {0}.{1}, {0}.{2} FROM {0} WHERE LOWER({0}.{2}) IN ({3});", owners.table,
                  owners.name, column, sought);
  forEachRow(desk.database(), sql, [&](const Row& row) {
    const std::string name = row.text(owners.name);
    if (name.empty()) return;
    Known& found = known.try_emplace(lowerCase(row.text(column)), Known{&owners, {}}).first->second;
    if (found.owners == &owners) found.names.insert(name);
  });
}

NamedAddress named(const std::string& address, const KnownAddresses& known) {
  constexpr std::size_t mostNames = 3;
  const auto found = known.find(keyOf(address));
  if (found == known.end()) return {address};
  const auto& [owners, names] = found->second;
  std::vector<std::string_view> told(names.begin(), names.end());
  if (told.size() > mostNames) {
    told.resize(mostNames);
    told.back() = "...";
  }
  return {address, fmt::format("{}", fmt::join(told, ", ")), owners->isOfFirm};
}

}  // namespace

std::vector<NamedAddress> nameAddresses(Desk& desk, const std::vector<std::string>& addresses) {
  KnownAddresses known;
  for (const bool areEmails : {true, false}) {
    const std::string sought = soughtOf(desk, addresses, areEmails);
    if (sought.empty()) continue;
    for (const Owners& owners : allOwners())
      for (const char* column : areEmails ? owners.emails : owners.numbers)
        readNames(desk, owners, column, sought, known);
  }
  std::vector<NamedAddress> all;
  all.reserve(addresses.size());
  for (const std::string& address : addresses) all.push_back(named(address, known));
  return all;
}

}  // namespace autonotify::host
