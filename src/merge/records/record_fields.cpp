#include "merge/records/record_fields.h"

#include "contract/recordsets.h"
#include "merge/records/merge_conversions.h"
#include "merge/records/merge_values.h"
#include "merge/records/modCodeTexts.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {

/// A field that is not, or not only, a column of its source.
struct RecordFields::DerivedField {
  MergeSource source;
  std::string_view name;
  /// Gives the value; nullptr for a column that is read as named.
  Value (RecordFields::*read)(MergeSource source, std::string& name);
  bool anyCase = false;
  bool isWritten = false;
  /// Of a coded column: the code that an empty one stands for, and the texts.
  std::int16_t startingCode = 0;
  std::string (*textOf)(std::int16_t& code) = nullptr;

  static constexpr DerivedField coded(std::string_view name, std::int16_t startingCode,
                                      std::string (*textOf)(std::int16_t& code)) {
    return {.source = MergeSource::clientAccounting,
            .name = name,
            .read = &RecordFields::readCodedField,
            .startingCode = startingCode,
            .textOf = textOf};
  }
};

/// A field of an inheriting contact, the company's column, and which of them is read first.
struct RecordFields::InheritedField {
  std::string_view contactColumn;
  const char* companyColumn;
  bool ownComesFirst = false;
};

using Self = RecordFields;

const Self::InheritedField Self::inheritedFields[] = {
    {"BusinessPhone_Main", "OfficeNumber", true},
    {"BusinessPhone_Fax", "FaxNumber", true},
    {"BusinessAddress", "Address"},
    {"BusinessCity", "City"},
    {"BusinessProvince", "Province"},
    {"BusinessPostalCode", "PostalCode"},
    {"BusinessCountry", "Country"},
};

const Self::InheritedField* RecordFields::findInheritedField(MergeSource source,
                                                             const std::string& name) {
  if (source != MergeSource::contact) return nullptr;
  for (const InheritedField& field : inheritedFields)
    if (field.contactColumn == name) return &field;
  return nullptr;
}

// "COMPANTYPE" is spelled as the fields have always compared it, so that the catalogue's own
// CompanyType is read as named.
const Self::DerivedField Self::derivedFields[] = {
    {MergeSource::contact, "ContactAndSpouseName", &Self::readContactAndSpouseName},
    {MergeSource::contact, "AbbreviatedProvince", &Self::readAbbreviatedProvince, true},
    {MergeSource::contact, "BusinessAbbreviatedProvince", &Self::readAbbreviatedProvince, true},
    {MergeSource::contact, "HomeAbbreviatedProvince", &Self::readAbbreviatedProvince, true},
    {MergeSource::contact, "SpouseAbbreviatedProvince", &Self::readAbbreviatedProvince, true},
    {MergeSource::contact, "AltAbbreviatedProvince", &Self::readAbbreviatedProvince, true},
    {MergeSource::company, "AbbreviatedProvince", &Self::readAbbreviatedProvince, true},
    {MergeSource::company, "AltAbbreviatedProvince", &Self::readAbbreviatedProvince, true},
    {MergeSource::company, "COMPANTYPE", &Self::readCompanyType, true},
    DerivedField::coded("RC59Permission", 0, getRC59PermissionStringFromRC59PermissionNum),
    DerivedField::coded("RC59Status", 0, getRC59FormStatusStringFromRC59FormStatusNum),
    DerivedField::coded("GSTFilingMethod", 0, getGSTFilingMethodStringFromGSTFilingMethodNum),
    DerivedField::coded("FinancialStatements", 1,
                        getFinancialStatementsStringFromFinancialStatementsNum),
    DerivedField::coded("CorporationType", 0, getCorporationTypeStringFromCorporationTypeNum),
    DerivedField::coded("CorporationLevel", 1, getCorporationLevelStringFromCorporationLevelNum),
    {MergeSource::clientAccounting, "YearEndDate", &Self::readYearEnd, false, true},
    {MergeSource::appointment, "TimeDuration", &Self::readTimeDuration},
    {MergeSource::task, "TimeDuration", &Self::readTimeDuration},
    {MergeSource::docket, "TimeDuration", &Self::readTimeDuration},
    {MergeSource::software, "TimeDuration", nullptr},
    {MergeSource::firm, "TimeDuration", nullptr},
};

const Self::DerivedField* RecordFields::findDerivedField(MergeSource source,
                                                         const std::string& name) {
  for (const DerivedField& field : derivedFields) {
    if (field.source != source) continue;
    if (field.name.size() != name.size()) continue;
    if (field.anyCase ? equalIgnoreCase(field.name, name) : field.name == name) return &field;
  }
  return nullptr;
}

RecordFields::RecordFields(Step& step, MergeSources& sources, const MergeScope& scope)
    : step_(step), sources_(sources), scope_(scope) {}

bool RecordFields::isColumn(MergeSource source, const std::string& name) {
  const DerivedField* const derived = findDerivedField(source, name);
  return !findInheritedField(source, name) && !(derived && derived->read);
}

Value RecordFields::read(MergeSource source, std::string& name) {
  const InheritedField* const inherited = findInheritedField(source, name);
  if (inherited && isInheritingCompany()) return readInherited(*inherited);
  const DerivedField* const derived = findDerivedField(source, name);
  if (derived && derived->read) return (this->*derived->read)(source, name);
  return readColumn(source, name);
}

void RecordFields::write(MergeSource source, const std::string& name, const std::string& value) {
  const DerivedField* const derived = findDerivedField(source, name);
  if (derived && !derived->isWritten) return;
  if (!sources_.openForWriting(step_, scope_, source) || !sources_.goToRow(step_, scope_, source))
    return;
  writeInherited(source, name, value);
  writeColumn(source, name, value);
}

Value RecordFields::readColumn(MergeSource source, const std::string& column) {
  const auto read = [&] { return database().getFieldValue(sources_.handleOf(source), column); };
  return step_.value(Value{}, read);
}

void RecordFields::writeColumn(MergeSource source, const std::string& column,
                               const std::string& value) {
  step_.run(updateField, sources_.handleOf(source), column.c_str(), value);
}

/// True when the contact goes by its company's address and the company's row is current.
bool RecordFields::isInheritingCompany() {
  if (scope_.ids.companyID < 0) return false;
  const bool inherits = step_.holds([&] {
    const Value flag =
        database().getFieldValue(sources_.handleOf(MergeSource::contact), "InheritCompanyInfo");
    return !flag.isNull() && toFlag(flag);
  });
  return inherits && sources_.openOnDemand(step_, scope_, MergeSource::company) &&
         sources_.goToRow(step_, scope_, MergeSource::company);
}

Value RecordFields::readInherited(const InheritedField& field) {
  const auto read = [&](bool own) {
    return own ? readColumn(MergeSource::contact, std::string(field.contactColumn))
               : readColumn(MergeSource::company, field.companyColumn);
  };
  Value value = read(field.ownComesFirst);
  return isEmptyValue(value) ? read(!field.ownComesFirst) : value;
}

/// A contact that goes by its company's address changes it there as well.
void RecordFields::writeInherited(MergeSource source, const std::string& name,
                                  const std::string& value) {
  const InheritedField* const field = findInheritedField(source, name);
  if (!field || !sources_.openForWriting(step_, scope_, MergeSource::company)) return;
  if (isInheritingCompany()) writeColumn(MergeSource::company, field->companyColumn, value);
}

Value RecordFields::readContactAndSpouseName(MergeSource, std::string&) {
  return step_.value(std::string{}, [&] {
    return clients().getContactAndSpouseName(scope_.ids.contactID, true, 2);
  });
}

Value RecordFields::readAbbreviatedProvince(MergeSource source, std::string& name) {
  name = replaceAllIgnoreCase(name, "Abbreviated", "");
  return getAbbreviatedProvince(textOf(readColumn(source, name)));
}

Value RecordFields::readCompanyType(MergeSource, std::string&) {
  constexpr MergeSource source = MergeSource::clientAccounting;
  if (!sources_.openOnDemand(step_, scope_, source) || !sources_.goToRow(step_, scope_, source))
    return {};
  const Value code = readColumn(source, "CompanyType");
  if (isEmptyValue(code)) return {};
  return step_.value(std::string{}, [&] {
    std::int16_t number = toInteger16(code);
    return getCompanyTypeStringFromCompanyTypeNum(number);
  });
}

Value RecordFields::readCodedField(MergeSource source, std::string& name) {
  const DerivedField& field = *findDerivedField(source, name);
  std::int16_t code = field.startingCode;
  const Value column = readColumn(source, name);
  if (!isEmptyValue(column)) step_.assign(code, toInteger16, column);
  return field.textOf(code);
}

/// The day of the year alone.
Value RecordFields::readYearEnd(MergeSource source, std::string& name) {
  Value date = readColumn(source, name);
  if (!isEmptyValue(date))
    step_.assign(date, [&] { return Value(formatDateTime(toDateTime(date), "mmmm d")); });
  return date;
}

/// A task's times are read where an appointment's are; without an open appointment that fails, and
/// the field has no value.
Value RecordFields::readTimeDuration(MergeSource source, std::string&) {
  const RecordsetHandle handle = sources_.handleOf(
      source == MergeSource::docket ? MergeSource::docket : MergeSource::appointment);
  return step_.value(std::string{}, [&] {
    const DateTime from = toDateTime(database().getFieldValue(handle, "TimeFrom"));
    const DateTime to = toDateTime(database().getFieldValue(handle, "TimeTo"));
    return getTimeDurationFieldValue(from, to);
  });
}

}  // namespace autonotify
