#include <algorithm>
#include <set>

#include "host/clients/ClientDirectory.h"
#include "host/clients/record_rows.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

/// Each name once, whatever its case, and in that order.
std::vector<std::string> asOffered(std::vector<std::string> names) {
  std::map<std::string, std::string> byKey;
  for (std::string& name : names) {
    std::string key = lowerCase(trim(name));
    if (!key.empty()) byKey.try_emplace(std::move(key), std::move(name));
  }
  names.clear();
  for (auto& [key, name] : byKey) names.push_back(std::move(name));
  return names;
}

}  // namespace

std::vector<std::pair<std::string, ListedClient>> ClientDirectory::readClients() {
  std::set<Id> shown;
  for (const auto& [id, row] : shownCompanies_.readAll()) shown.insert(id);
  std::vector<std::pair<std::string, ListedClient>> clients;
  for (const auto& [id, company] : companies_.readAll())
    if (shown.contains(id)) clients.push_back({companyName(company), {enumAutoNotifyCompany, id}});
  for (const auto& [id, contact] : contacts_.readAll())
    clients.push_back({contactName(contact), {enumAutoNotifyContact, id}});
  return clients;
}

std::vector<std::string> ClientDirectory::getClientNames() {
  std::vector<std::string> names;
  for (auto& [name, client] : readClients()) names.push_back(std::move(name));
  return asOffered(std::move(names));
}

std::vector<std::string> ClientDirectory::getEmployeeNames() {
  std::vector<std::string> names;
  for (const auto& [id, user] : staff_.readAll()) names.push_back(textOf(user.front()));
  return asOffered(std::move(names));
}

ListedClient ClientDirectory::getClientFromName(const std::string& name) {
  const auto clients = readClients();
  const auto found = std::ranges::find_if(
      clients, [&](const auto& each) { return equalIgnoreCase(trim(each.first), trim(name)); });
  return found == clients.end() || trim(name).empty() ? ListedClient{} : found->second;
}

}  // namespace autonotify::host
