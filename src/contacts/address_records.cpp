#include "contacts/address_records.h"

#include "contacts/modDefaultContact.h"
#include "store/column_lookup.h"

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

void readFields(Step& step, RecordsetHandle handle, AddressSource source, FieldRange range,
                AddressRecord& record) {
  forEachColumn(source, range, [&](AddressField field, const char* column) {
    record[field] = readText(step, handle, column);
  });
}

void readContactLines(Step& step, RecordsetHandle handle, AddressSource source,
                      const AddressParts& parts, AddressRecord& record) {
  if (parts.phones) readFields(step, handle, source, phoneRange, record);
  if (parts.email) readFields(step, handle, source, emailRange, record);
}

/// The company's place comes before the person's own, its numbers behind them.
void inheritFromCompany(Step& step, RecordsetHandle company, const AddressParts& parts,
                        AddressRecord& record) {
  if (parts.address) {
    forEachColumn(ofCompany, placeRange, [&](AddressField field, const char* column) {
      const std::string text = readText(step, company, column);
      if (!text.empty()) record[field] = text;
    });
  }
  if (parts.phones) {
    forEachColumn(ofCompany, phoneRange, [&](AddressField field, const char* column) {
      if (record[field].empty()) record[field] = readText(step, company, column);
    });
  }
}

constexpr const char* companyStatement =
    "SELECT Companies.* FROM Companies WHERE Companies.CompanyID=";
constexpr const char* firmStatement =
    "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo WHERE AccountantFirmInfo.CompanyID=";

std::string personStatement(const AddressPerson& person) {
  if (person.contactId >= 0) {
    return statementFor("SELECT Contacts.* FROM Contacts WHERE Contacts.ContactID=",
                        person.contactId);
  }
  return statementFor(
      "SELECT AccountantEmployeeInfo.* FROM AccountantEmployeeInfo WHERE "
      "AccountantEmployeeInfo.ContactID=",
      person.employeeId);
}

/// Runs `body(handle)` on the person's row.
template <class Body>
void withPerson(Step& step, const AddressPerson& person, Body&& body) {
  if (person.contactId < 0 && person.employeeId < 0) return;
  if (!isDatabaseOpen(step)) return;
  withFirstRow(step, personStatement(person), keysetRead, body);
}

void readBusinessFields(Step& step, RecordsetHandle row, const AddressParts& parts,
                        bool includeBusinessName, AddressRecord& record) {
  const AddressField nameAlone = AddressField::businessName;
  if (includeBusinessName) readFields(step, row, ofBusiness, {nameAlone, nameAlone}, record);
  record[AddressField::personName] = readText(step, row, "DisplayName");
  if (parts.address) readFields(step, row, ofBusiness, addressRange, record);
  readContactLines(step, row, ofBusiness, parts, record);
}

}  // namespace

bool readDisplayName(Step& step, Id contactId, std::string& name) {
  return withRow(
      step,
      "SELECT Contacts.ContactID, Contacts.DisplayName FROM Contacts WHERE Contacts.ContactID=",
      contactId, keysetRead,
      [&](RecordsetHandle handle) { name = readText(step, handle, "DisplayName"); });
}

void readCompanyAddress(Step& step, Id companyId, Id firmId, const AddressParts& parts,
                        bool& includePerson, AddressRecord& record) {
  const bool isFirm = firmId >= 0;
  if ((companyId < 0 && !isFirm) || !isDatabaseOpen(step)) return;
  withRow(step, isFirm ? firmStatement : companyStatement, isFirm ? firmId : companyId, keysetRead,
          [&](RecordsetHandle row) {
            if (parts.address) readFields(step, row, ofCompany, addressRange, record);
            if (includePerson) {
              includePerson = readDisplayName(step, checkForDefaultContact(companyId, noId),
                                              record[AddressField::personName]);
            }
            readContactLines(step, row, ofCompany, parts, record);
          });
}

void readBusinessAddress(Step& step, const AddressPerson& person, Id companyId,
                         const AddressParts& parts, bool includeBusinessName,
                         AddressRecord& record) {
  withPerson(step, person, [&](RecordsetHandle row) {
    const bool isStaff = person.contactId < 0;
    if (isStaff) companyId = readId(step, row, "CompanyNum");
    readBusinessFields(step, row, parts, includeBusinessName, record);
    withRow(step, isStaff ? firmStatement : companyStatement, companyId, keysetRead,
            [&](RecordsetHandle company) {
              if (readFlag(step, row, "InheritCompanyInfo"))
                inheritFromCompany(step, company, parts, record);
            });
  });
}

void readHomeAddress(Step& step, const AddressPerson& person, const AddressParts& parts,
                     AddressRecord& record) {
  withPerson(step, person, [&](RecordsetHandle row) {
    if (parts.address) readFields(step, row, ofHome, addressRange, record);
    readContactLines(step, row, ofHome, parts, record);
  });
}

}  // namespace autonotify
