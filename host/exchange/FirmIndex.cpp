#include "host/exchange/FirmIndex.h"

#include <algorithm>

#include "host/clients/record_rows.h"
#include "host/exchange/EntryBook.h"
#include "host/exchange/cell_values.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

bool isSameName(std::string_view left, std::string_view right) {
  return foldName(left) == foldName(right);
}

/// Neither says anything that the other one denies.
bool mayBeEqual(std::string_view left, std::string_view right) {
  return left.empty() || right.empty() || isSameName(left, right);
}

[[noreturn]] void refuseAmbiguous(const std::string& name) {
  throw EntryRefused("there is more than one \"" + name + "\": give the client number");
}

const Known* onlyOne(const std::vector<const Known*>& found, const std::string& name) {
  if (found.size() > 1) refuseAmbiguous(name);
  return found.empty() ? nullptr : found.front();
}

std::string firstOf(const Row& row, const char* first, const char* second) {
  std::string text = row.text(first);
  return text.empty() ? row.text(second) : text;
}

}  // namespace

std::string foldName(std::string_view name) {
  std::string folded;
  for (const char c : lowerCase(withoutBlanks(std::string(name)))) {
    const char kept = blanks.find(c) == blanks.npos ? c : ' ';
    if (kept != ' ' || folded.back() != ' ') folded += kept;
  }
  return folded;
}

void KnownClients::add(Known known) {
  const auto note = [&](auto& index, const std::string& name) {
    if (name.empty()) return;
    Ids& ids = index[foldName(name)];
    if (std::ranges::find(ids, known.id) == ids.end()) ids.push_back(known.id);
  };
  note(byNumber_, known.number);
  note(byName_, known.name);
  Known& held = all_[known.id];
  for (const auto part :
       {&Known::number, &Known::name, &Known::street, &Known::phone, &Known::fax, &Known::email})
    if (!(known.*part).empty()) held.*part = std::move(known.*part);
  held.id = known.id;
}

const Known* KnownClients::find(Id id) const {
  const auto found = all_.find(id);
  return found == all_.end() ? nullptr : &found->second;
}

std::vector<const Known*> KnownClients::ofName(std::string_view name) const {
  std::vector<const Known*> found;
  if (const auto ids = byName_.find(foldName(name)); ids != byName_.end())
    for (const Id id : ids->second)
      if (isSameName(all_.at(id).name, name)) found.push_back(&all_.at(id));
  return found;
}

const Known* KnownClients::match(const Known& wanted) const {
  if (!wanted.number.empty()) {
    const auto ids = byNumber_.find(foldName(wanted.number));
    if (ids != byNumber_.end() && ids->second.size() > 1) refuseAmbiguous(wanted.number);
    if (ids != byNumber_.end()) return find(ids->second.front());
  }
  std::vector<const Known*> found = ofName(wanted.name);
  std::erase_if(found, [&](const Known* known) {
    const bool isOther = !wanted.number.empty() && !known->number.empty();
    return isOther || !mayBeEqual(known->street, wanted.street);
  });
  return onlyOne(found, wanted.name);
}

const Known* KnownClients::named(const std::string& reference) const {
  if (const auto ids = byNumber_.find(foldName(reference));
      ids != byNumber_.end() && ids->second.size() == 1)
    return find(ids->second.front());
  std::vector<const Known*> found = ofName(reference);
  if (const std::size_t end = reference.rfind(';'); found.empty() && end != reference.npos) {
    found = ofName(reference.substr(0, end));
    std::erase_if(found, [&](const Known* known) {
      return !isSameName(known->street, reference.substr(end + 1));
    });
  }
  return onlyOne(found, reference);
}

std::string KnownClients::referenceTo(Id id) const {
  const Known* known = find(id);
  if (!known) return {};
  if (!known->number.empty() && byNumber_.at(foldName(known->number)).size() == 1)
    return known->number;
  return ofName(known->name).size() > 1 ? known->name + "; " + known->street : known->name;
}

FirmIndex::FirmIndex(DatabaseReference& database) : database_(database), rows_(database) {
  readCompanies();
  readContacts();
  forEachRow(database, "SELECT ClientDataID, CompanyIDNum FROM ClientData;", [&](const Row& row) {
    addClientData(row.id("CompanyIDNum"), row.id("ClientDataID"));
  });
  forEachRow(database,
             "SELECT TotalNum, ScheduleNum, ScheduleTypeName FROM ScheduleTypes WHERE "
             "TotalNum>=0 AND ScheduleNum>=0;",
             [&](const Row& row) {
               addKind({row.id("TotalNum"), row.id("ScheduleNum"), row.text("ScheduleTypeName")});
             });
  forEachRow(database, "SELECT ContactID, DisplayName FROM AccountantEmployeeInfo;",
             [&](const Row& row) { addStaffMember(row.text("DisplayName"), row.id("ContactID")); });
}

void FirmIndex::readCompanies() {
  forEachRow(database_, "SELECT CompanyID, ClientIDStr, CompanyName, Address1 FROM Companies;",
             [&](const Row& row) {
               companies_.add({.id = row.id("CompanyID"),
                               .number = row.text("ClientIDStr"),
                               .name = row.text("CompanyName"),
                               .street = row.text("Address1")});
             });
}

void FirmIndex::readContacts() {
  forEachRow(database_,
             "SELECT ContactID, ClientIDStr, DisplayName, HomeAddress1, BusinessPhone_Main, "
             "HomePhone_Main, BusinessPhone_Fax, HomePhone_Fax, BusinessEmail, PersonalEmail FROM "
             "Contacts;",
             [&](const Row& row) {
               contacts_.add({.id = row.id("ContactID"),
                              .number = row.text("ClientIDStr"),
                              .name = row.text("DisplayName"),
                              .street = row.text("HomeAddress1"),
                              .phone = firstOf(row, "BusinessPhone_Main", "HomePhone_Main"),
                              .fax = firstOf(row, "BusinessPhone_Fax", "HomePhone_Fax"),
                              .email = firstOf(row, "BusinessEmail", "PersonalEmail")});
             });
}

Id FirmIndex::clientDataOf(Id company) const {
  const auto found = clientData_.find(company);
  return found == clientData_.end() ? noId : found->second;
}

Id FirmIndex::companyOf(Id clientData) const {
  const auto found = companyOfData_.find(clientData);
  return found == companyOfData_.end() ? noId : found->second;
}

void FirmIndex::addClientData(Id company, Id clientData) {
  clientData_.emplace(company, clientData);
  companyOfData_.emplace(clientData, company);
}

KnownClient FirmIndex::client(const std::string& reference) const {
  const Known* company = companies_.named(reference);
  const Known* contact = contacts_.named(reference);
  if (company && contact)
    throw EntryRefused("\"" + reference + "\" is a company and a person: give the client number");
  if (!company && !contact) throw EntryRefused("there is no client \"" + reference + '"');
  if (contact) return {.contact = contact->id};
  if (clientDataOf(company->id) < 0)
    throw EntryRefused('"' + company->name + "\" is a company, but no client");
  return {.company = company->id, .clientData = clientDataOf(company->id)};
}

std::string FirmIndex::referenceTo(const KnownClient& client) const {
  return client.contact >= 0 ? contacts_.referenceTo(client.contact)
                             : companies_.referenceTo(client.company);
}

const KnownKind& FirmIndex::kind(const std::string& reference) const {
  std::vector<const KnownKind*> found;
  for (const KnownKind& kind : kinds_)
    if (isSameName(kind.name, reference) ||
        reference == std::to_string(kind.family) + '/' + std::to_string(kind.number))
      found.push_back(&kind);
  if (found.empty()) throw EntryRefused("there is no kind of task \"" + reference + '"');
  if (found.size() > 1)
    throw EntryRefused("there is more than one kind of task \"" + reference +
                       "\": give the numbers of family and kind, such as 101/3");
  return *found.front();
}

std::string FirmIndex::referenceToKind(Id family, Id number) const {
  const auto kind = std::ranges::find_if(kinds_, [&](const KnownKind& each) {
    return each.family == family && each.number == number;
  });
  const bool isOnly =
      kind != kinds_.end() && std::ranges::count_if(kinds_, [&](const KnownKind& each) {
                                return isSameName(each.name, kind->name);
                              }) == 1;
  return isOnly ? kind->name : std::to_string(family) + '/' + std::to_string(number);
}

Id FirmIndex::staffMember(const std::string& name) const {
  const auto found = staff_.find(foldName(name));
  return found == staff_.end() ? noId : found->second;
}

Id FirmIndex::category(int specialCode) {
  return firstId("SELECT CategoryID FROM Categories WHERE CategorySpecialCode=" +
                     std::to_string(specialCode) + ';',
                 "CategoryID");
}

Id FirmIndex::firm() {
  return firstId("SELECT CompanyID FROM AccountantFirmInfo;", "CompanyID");
}

Id FirmIndex::firstId(const std::string& sql, const char* column) {
  Id id = noId;
  firstRow(database_, sql, [&](const Row& row) { id = row.id(column); });
  return id;
}

}  // namespace autonotify::host
