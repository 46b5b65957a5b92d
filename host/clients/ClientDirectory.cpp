#include "host/clients/ClientDirectory.h"

#include <algorithm>
#include <array>
#include <span>

#include "host/clients/person_names.h"
#include "host/clients/record_rows.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

// Positions in the rows of the lookup tables.
enum CompanyColumn {
  CompanyName,
  CorporateName,
  CompanyClientId,
  CompanyPartner,
  CompanyAccountant,
  OfficeNumber,
  CompanyFax,
  CompanyEmail,
  DefaultContactName,
  DefaultContactPhone,
  DefaultContactEmail,
};
enum ContactColumn {
  DisplayName,
  FirstName,
  LastName,
  SpouseFirstName,
  SpouseLastName,
  SpouseName,
  ContactClientId,
  ContactPartner,
  ContactAccountant,
  BusinessPhone,
  BusinessCell,
  HomePhone,
  HomeCell,
  BusinessFax,
  HomeFax,
  BusinessEmail,
  PersonalEmail,
};

struct NamedColumn {
  int position;
  const char* name;
};
constexpr NamedColumn companyColumns[] = {
    {CompanyName, "CompanyName"},
    {CorporateName, "CorporateName"},
    {CompanyClientId, "ClientIDStr"},
    {CompanyPartner, "PartnerName"},
    {CompanyAccountant, "AccountantName"},
    {OfficeNumber, "OfficeNumber"},
    {CompanyFax, "FaxNumber"},
    {CompanyEmail, "Email"},
    {DefaultContactName, "DefaultContactName"},
    {DefaultContactPhone, "DefaultContactPhoneNumber"},
    {DefaultContactEmail, "DefaultContactEmail"},
};
constexpr NamedColumn contactColumns[] = {
    {DisplayName, "DisplayName"},
    {FirstName, "FirstName"},
    {LastName, "LastName"},
    {SpouseFirstName, "SpouseFirstName"},
    {SpouseLastName, "SpouseLastName"},
    {SpouseName, "SpouseName"},
    {ContactClientId, "ClientIDStr"},
    {ContactPartner, "PartnerName"},
    {ContactAccountant, "AccountantName"},
    {BusinessPhone, "BusinessPhone_Main"},
    {BusinessCell, "BusinessPhone_Cell"},
    {HomePhone, "HomePhone_Main"},
    {HomeCell, "HomePhone_Cell"},
    {BusinessFax, "BusinessPhone_Fax"},
    {HomeFax, "HomePhone_Fax"},
    {BusinessEmail, "BusinessEmail"},
    {PersonalEmail, "PersonalEmail"},
};

constexpr bool isInOrder(std::span<const NamedColumn> columns) {
  int position = 0;
  for (const NamedColumn& column : columns)
    if (column.position != position++) return false;
  return true;
}
static_assert(isInOrder(companyColumns) && isInOrder(contactColumns));

std::vector<const char*> columnNames(std::span<const NamedColumn> columns) {
  std::vector<const char*> names;
  for (const NamedColumn& column : columns) names.push_back(column.name);
  return names;
}

/// A company's names, the one to show first. The firm's rows hold these two, in the same places.
constexpr std::array<int, 2> companyNames{CompanyName, CorporateName};

constexpr int mainCategoryCode = 1;

/// An item and the columns that may hold it, the likeliest first.
struct InfoItem {
  std::int16_t item;
  std::vector<int> columns;
};

const std::vector<InfoItem>& companyItems() {
  static const std::vector<InfoItem> items = {
      {info_item::clientId, {CompanyClientId}},
      {info_item::supervisingPartner, {CompanyPartner}},
      {info_item::managingAccountant, {CompanyAccountant}},
      {info_item::phone, {OfficeNumber}},
      {info_item::fax, {CompanyFax}},
      {info_item::email, {CompanyEmail}},
      {info_item::defaultContactName, {DefaultContactName}},
      {info_item::defaultContactPhone, {DefaultContactPhone}},
      {info_item::defaultContactEmail, {DefaultContactEmail}},
  };
  return items;
}

const std::vector<InfoItem>& contactItems() {
  static const std::vector<InfoItem> items = {
      {info_item::clientId, {ContactClientId}},
      {info_item::supervisingPartner, {ContactPartner}},
      {info_item::managingAccountant, {ContactAccountant}},
      {info_item::phone, {BusinessPhone, HomePhone, BusinessCell, HomeCell}},
      {info_item::fax, {BusinessFax, HomeFax}},
      {info_item::email, {BusinessEmail, PersonalEmail}},
  };
  return items;
}

std::string textAt(const LookupRow& row, int column) {
  return textOf(row[static_cast<std::size_t>(column)]);
}

std::string firstText(const LookupRow& row, std::span<const int> columns) {
  for (const int column : columns) {
    std::string text = textAt(row, column);
    if (!text.empty()) return text;
  }
  return {};
}

std::string infoItem(const std::vector<InfoItem>& items, const LookupRow& row, std::int16_t item) {
  const auto found =
      std::ranges::find_if(items, [&](const InfoItem& each) { return each.item == item; });
  return found == items.end() ? std::string() : firstText(row, found->columns);
}

/// What the contact's own record calls an item of its company.
std::int16_t contactItemBehind(std::int16_t item) {
  switch (item) {
    case info_item::defaultContactPhone:
      return info_item::phone;
    case info_item::defaultContactEmail:
      return info_item::email;
    default:
      return 0;
  }
}

PersonNames namesOf(const LookupRow& contact) {
  return {textAt(contact, DisplayName),    textAt(contact, FirstName),
          textAt(contact, LastName),       textAt(contact, SpouseFirstName),
          textAt(contact, SpouseLastName), textAt(contact, SpouseName)};
}

}  // namespace

ClientDirectory::ClientDirectory(DatabaseReference& database, std::function<void(bool)> onBatch)
    : companies_(database, {"Companies", "CompanyID", "CompanyID", columnNames(companyColumns)}),
      contacts_(database, {"Contacts", "ContactID", "ContactID", columnNames(contactColumns)}),
      clientData_(database, {"ClientData", "ClientDataID", "ClientDataID", {"CompanyIDNum"}}),
      clientDataOfCompany_(database,
                           {"ClientData", "CompanyIDNum", "ClientDataID", {"ClientDataID"}}),
      shownCompanies_(database, {"ClientData",
                                 "CompanyIDNum",
                                 "ClientDataID",
                                 {"ClientDataID"},
                                 "ClientData.ShowThisClient=True"}),
      defaultContacts_(database, {"ContactLinks",
                                  "CompanyNum",
                                  "ContactLinkID",
                                  {"ContactIDNum"},
                                  "ContactLinks.DefaultContact=True"}),
      staff_(database, {"AccountantEmployeeInfo", "ContactID", "ContactID", {"DisplayName"}}),
      categories_(
          database,
          {"Categories", "CategoryID", "CategoryID", {"CategoryName", "CategorySpecialCode"}}),
      firms_(database,
             {"AccountantFirmInfo", "CompanyID", "CompanyID", {"CompanyName", "CorporateName"}}),
      onBatch_(std::move(onBatch)) {}

bool ClientDirectory::isCompanyClient(Id companyId) {
  return find(shownCompanies_, companyId) != nullptr;
}

bool ClientDirectory::isContactClient(Id contactId) {
  return find(contacts_, contactId) != nullptr;
}

Id ClientDirectory::getCompanyIDFromClientID(Id clientId) {
  return clientData_.linkOf(clientId, isBatch_);
}

Id ClientDirectory::getClientDataIDFromCompanyID(Id companyId) {
  return clientDataOfCompany_.linkOf(companyId, isBatch_);
}

Id ClientDirectory::getDefaultContactID(Id companyId) {
  return defaultContacts_.linkOf(companyId, isBatch_);
}

std::string ClientDirectory::getCompanyDisplayName(Id companyId) {
  const LookupRow* company = find(companies_, companyId);
  return company ? companyName(*company) : std::string();
}

std::string ClientDirectory::getContactDisplayName(Id contactId) {
  const LookupRow* contact = find(contacts_, contactId);
  return contact ? contactName(*contact) : std::string();
}

std::string ClientDirectory::companyName(const LookupRow& company) {
  return firstText(company, companyNames);
}

std::string ClientDirectory::contactName(const LookupRow& contact) {
  return displayName(namesOf(contact));
}

std::string ClientDirectory::getCompanyNameFromClientID(Id clientId) {
  if (clientId == clientDataOfFirm) return firmName();
  return getCompanyDisplayName(getCompanyIDFromClientID(clientId));
}

std::string ClientDirectory::getContactAndSpouseName(Id contactId, bool withSpouse, int form) {
  const LookupRow* contact = find(contacts_, contactId);
  if (!contact) return {};
  const PersonNames names = namesOf(*contact);
  return withSpouse ? coupleName(names, form == 2) : displayName(names);
}

std::string ClientDirectory::getCompanyInfoItem(Id companyId, std::int16_t item) {
  const LookupRow* company = find(companies_, companyId);
  if (!company) return {};
  std::string text = infoItem(companyItems(), *company, item);
  if (!text.empty()) return text;
  if (item == info_item::defaultContactName)
    return getContactDisplayName(getDefaultContactID(companyId));
  const std::int16_t behind = contactItemBehind(item);
  return behind ? getContactInfoItem(getDefaultContactID(companyId), behind) : std::string();
}

std::string ClientDirectory::getContactInfoItem(Id contactId, std::int16_t item) {
  const LookupRow* contact = find(contacts_, contactId);
  return contact ? infoItem(contactItems(), *contact, item) : std::string();
}

std::string ClientDirectory::getUserNameFromID(Id userId) {
  const LookupRow* user = find(staff_, userId);
  return user ? textAt(*user, 0) : std::string();
}

Id ClientDirectory::getUserIDFromName(const std::string& name) {
  const std::string_view sought = trim(name);
  if (sought.empty()) return noId;
  for (const auto& [id, user] : staff_.readAll()) {
    if (equalIgnoreCase(trim(textAt(user, 0)), sought)) return id;
  }
  return noId;
}

std::string ClientDirectory::getCategoryName(Id categoryId) {
  const LookupRow* category = find(categories_, categoryId);
  return category ? textAt(*category, 0) : std::string();
}

Id ClientDirectory::getMainAddressBookCategoryID() {
  for (const auto& [id, category] : categories_.readAll()) {
    const Value& code = category[1];
    if (!code.isNull() && toInteger(code) == mainCategoryCode) return id;
  }
  return noId;
}

void ClientDirectory::setClientLookupBatch(bool batch) {
  isBatch_ = batch;
  for (LookupTable* table : {&companies_, &contacts_, &clientData_, &clientDataOfCompany_,
                             &shownCompanies_, &defaultContacts_, &staff_, &categories_, &firms_})
    table->forget();
  if (onBatch_) onBatch_(batch);
}

std::string ClientDirectory::firmName() {
  for (const auto& [id, firm] : firms_.readAll()) {
    std::string name = firstText(firm, companyNames);
    if (!name.empty()) return name;
  }
  return {};
}

}  // namespace autonotify::host
