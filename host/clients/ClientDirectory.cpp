#include "host/clients/ClientDirectory.h"

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

constexpr int mainCategoryCode = 1;

/// The columns that may hold a text, the likeliest first.
struct Places {
  std::array<int, 4> columns{};
  std::size_t count = 0;
};
template <class... Columns>
constexpr Places in(Columns... columns) {
  return {{columns...}, sizeof...(columns)};
}

/// A company's names, the one to show first. The firm's rows hold these two, in the same places.
constexpr Places companyNames = in(CompanyName, CorporateName);

/// By item.
using ItemPlaces = std::array<Places, info_item::defaultContactEmail + 1>;

constexpr ItemPlaces companyItems = [] {
  ItemPlaces items;
  items[info_item::clientId] = in(CompanyClientId);
  items[info_item::supervisingPartner] = in(CompanyPartner);
  items[info_item::managingAccountant] = in(CompanyAccountant);
  items[info_item::phone] = in(OfficeNumber);
  items[info_item::fax] = in(CompanyFax);
  items[info_item::email] = in(CompanyEmail);
  items[info_item::defaultContactName] = in(DefaultContactName);
  items[info_item::defaultContactPhone] = in(DefaultContactPhone);
  items[info_item::defaultContactEmail] = in(DefaultContactEmail);
  return items;
}();

constexpr ItemPlaces contactItems = [] {
  ItemPlaces items;
  items[info_item::clientId] = in(ContactClientId);
  items[info_item::supervisingPartner] = in(ContactPartner);
  items[info_item::managingAccountant] = in(ContactAccountant);
  items[info_item::phone] = in(BusinessPhone, HomePhone, BusinessCell, HomeCell);
  items[info_item::fax] = in(BusinessFax, HomeFax);
  items[info_item::email] = in(BusinessEmail, PersonalEmail);
  return items;
}();

std::string textAt(const LookupRow& row, int column) {
  return textOf(row[static_cast<std::size_t>(column)]);
}

bool holdsText(const Value& value) {
  const auto* text = value.getIf<std::string>();
  return text ? !text->empty() : !value.isNull();
}

/// What the first of the places holds that is not empty, or null.
const Value* firstHeld(const LookupRow& row, const Places& places) {
  for (std::size_t i = 0; i < places.count; ++i) {
    const Value& value = row[static_cast<std::size_t>(places.columns[i])];
    if (holdsText(value)) return &value;
  }
  return nullptr;
}

std::string firstText(const LookupRow& row, const Places& places) {
  const Value* held = firstHeld(row, places);
  return held ? toText(*held) : std::string();
}

const Value* infoItem(const LookupRow& row, const ItemPlaces& items, std::int16_t item) {
  const auto place = static_cast<std::size_t>(item);
  return place < items.size() ? firstHeld(row, items[place]) : nullptr;
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
  if (std::string name = textAt(contact, DisplayName); !name.empty()) return name;
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
  if (const Value* held = infoItem(*company, companyItems, item)) return toText(*held);
  return itemOfDefaultContact(companyId, item);
}

std::string ClientDirectory::itemOfDefaultContact(Id companyId, std::int16_t item) {
  if (item == info_item::defaultContactName)
    return getContactDisplayName(getDefaultContactID(companyId));
  const std::int16_t behind = contactItemBehind(item);
  return behind ? getContactInfoItem(getDefaultContactID(companyId), behind) : std::string();
}

std::string ClientDirectory::getContactInfoItem(Id contactId, std::int16_t item) {
  const LookupRow* contact = find(contacts_, contactId);
  const Value* held = contact ? infoItem(*contact, contactItems, item) : nullptr;
  return held ? toText(*held) : std::string();
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
