#include "contacts/address_records.h"

#include "contacts/modDefaultContact.h"
#include "contract/rows.h"

namespace autonotify {
namespace {

enum AddressSource { ofCompany, ofBusiness, ofHome };

/// The columns of each field by source; null where a source does not tell it.
constexpr const char* columns[addressFieldCount][3] = {
    {"CompanyName", "BusinessName", nullptr},
    {nullptr, "DisplayName", "DisplayName"},
    {"Address", "BusinessAddress", "HomeAddress"},
    {"City", "BusinessCity", "HomeCity"},
    {"Province", "BusinessProvince", "HomeProvince"},
    {"PostalCode", "BusinessPostalCode", "HomePostalCode"},
    {"Country", "BusinessCountry", "HomeCountry"},
    {"OfficeNumber", "BusinessPhone_Main", "HomePhone_Main"},
    {"FaxNumber", "BusinessPhone_Fax", "HomePhone_Fax"},
    {nullptr, "BusinessPhone_Cell", "HomePhone_Cell"},
    {nullptr, nullptr, nullptr},
    {"Email", "BusinessEmail", "PersonalEmail"},
    {nullptr, nullptr, nullptr},
};

/// Fields that are read together.
struct FieldRange {
  AddressField first;
  AddressField last;
};
constexpr FieldRange addressRange{AddressField::businessName, AddressField::country};
constexpr FieldRange placeRange{AddressField::street, AddressField::country};
constexpr FieldRange phoneRange{AddressField::phone, AddressField::cell};
constexpr FieldRange emailRange{AddressField::email, AddressField::email};

/// Calls `body(field, column)` for each field of the range that the source tells.
template <class Body>
void forEachColumn(AddressSource source, FieldRange range, Body&& body) {
  for (auto i = static_cast<std::size_t>(range.first); i <= static_cast<std::size_t>(range.last);
       ++i) {
    if (columns[i][source]) body(static_cast<AddressField>(i), columns[i][source]);
  }
}

void readFields(const Row& row, AddressSource source, FieldRange range, AddressRecord& record) {
  const auto read = [&](AddressField field, const char* column) {
    record[field] = row.text(column);
  };
  forEachColumn(source, range, read);
}

void readContactLines(const Row& row, AddressSource source, const AddressParts& parts,
                      AddressRecord& record) {
  if (parts.phones) readFields(row, source, phoneRange, record);
  if (parts.email) readFields(row, source, emailRange, record);
}

void readBusinessFields(const Row& row, const AddressParts& parts, bool includeBusinessName,
                        AddressRecord& record) {
  const AddressField nameAlone = AddressField::businessName;
  if (includeBusinessName) readFields(row, ofBusiness, {nameAlone, nameAlone}, record);
  record[AddressField::personName] = row.text("DisplayName");
  if (parts.address) readFields(row, ofBusiness, addressRange, record);
  readContactLines(row, ofBusiness, parts, record);
}

/// The company's place comes before the person's own, its numbers behind them.
void inheritFromCompany(const Row& company, const AddressParts& parts, AddressRecord& record) {
  if (parts.address) {
    forEachColumn(ofCompany, placeRange, [&](AddressField field, const char* column) {
      const std::string text = company.text(column);
      if (!text.empty()) record[field] = text;
    });
  }
  if (parts.phones) {
    forEachColumn(ofCompany, phoneRange, [&](AddressField field, const char* column) {
      if (record[field].empty()) record[field] = company.text(column);
    });
  }
}

constexpr const char* companyStatement =
    "SELECT Companies.* FROM Companies WHERE Companies.CompanyID=";
constexpr const char* firmStatement =
    "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo WHERE AccountantFirmInfo.CompanyID=";
constexpr const char* contactStatement =
    "SELECT Contacts.* FROM Contacts WHERE Contacts.ContactID=";
constexpr const char* staffStatement =
    "SELECT AccountantEmployeeInfo.* FROM AccountantEmployeeInfo WHERE "
    "AccountantEmployeeInfo.ContactID=";
constexpr const char* displayNameStatement =
    "SELECT Contacts.ContactID, Contacts.DisplayName FROM Contacts WHERE Contacts.ContactID=";

std::string personStatement(const AddressPerson& person) {
  if (person.contactId >= 0) return statementFor(contactStatement, person.contactId);
  return statementFor(staffStatement, person.employeeId);
}

bool canLookUp(Step& step, const AddressPerson& person) {
  return (person.contactId >= 0 || person.employeeId >= 0) && isDatabaseOpen(step);
}

}  // namespace

std::optional<std::string> readDisplayName(Step& step, Id contactId) {
  std::optional<std::string> name;
  if (const Rows contact(step, displayNameStatement, contactId, keysetRead); contact)
    name = contact.text("DisplayName");
  return name;
}

void readCompanyAddress(Step& step, Id companyId, Id firmId, const AddressParts& parts,
                        bool& includePerson, AddressRecord& record) {
  const bool isFirm = firmId >= 0;
  if ((companyId < 0 && !isFirm) || !isDatabaseOpen(step)) return;
  const char* const statement = isFirm ? firmStatement : companyStatement;
  const Rows row(step, statement, isFirm ? firmId : companyId, keysetRead);
  if (!row) return;
  if (parts.address) readFields(row, ofCompany, addressRange, record);
  if (includePerson) {
    const auto name = readDisplayName(step, checkForDefaultContact(companyId, noId));
    record[AddressField::personName] = name.value_or("");
    includePerson = name.has_value();
  }
  readContactLines(row, ofCompany, parts, record);
}

bool readBusinessAddress(Step& step, const AddressPerson& person, Id companyId,
                         const AddressParts& parts, bool includeBusinessName,
                         AddressRecord& record) {
  if (!canLookUp(step, person)) return false;
  const Rows row(step, personStatement(person), keysetRead);
  if (!row) return false;
  const bool isStaff = person.contactId < 0;
  if (isStaff) companyId = row.id("CompanyNum");
  readBusinessFields(row, parts, includeBusinessName, record);
  const Rows company(step, isStaff ? firmStatement : companyStatement, companyId, keysetRead);
  if (company && row.flag("InheritCompanyInfo")) inheritFromCompany(company, parts, record);
  return true;
}

void readHomeAddress(Step& step, const AddressPerson& person, const AddressParts& parts,
                     AddressRecord& record) {
  if (!canLookUp(step, person)) return;
  const Rows row(step, personStatement(person), keysetRead);
  if (!row) return;
  if (parts.address) readFields(row, ofHome, addressRange, record);
  readContactLines(row, ofHome, parts, record);
}

}  // namespace autonotify
