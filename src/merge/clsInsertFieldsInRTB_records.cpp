#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_columns.h"
#include "merge/records/merge_values.h"
#include "merge/records/modCodeTexts.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {

/// A field that is not, or not only, a column of its source.
struct clsInsertFieldsInRTB::DerivedField {
  MergeSource source;
  std::string_view name;
  /// Gives the value; nullptr for a column that is read as named.
  Value (clsInsertFieldsInRTB::*read)(Step& step, MergeSource source, std::string& fieldName);
  bool anyCase = false;
  bool isWritten = false;
  /// Of a coded column: the code that an empty one stands for, and the texts.
  std::int16_t startingCode = 0;
  std::string (*textOf)(std::int16_t& code) = nullptr;

  static constexpr DerivedField coded(std::string_view name, std::int16_t startingCode,
                                      std::string (*textOf)(std::int16_t& code)) {
    return {.source = MergeSource::clientAccounting,
            .name = name,
            .read = &clsInsertFieldsInRTB::readCodedField,
            .startingCode = startingCode,
            .textOf = textOf};
  }
};

/// A field of an inheriting contact, the company's column, and which of them is read first.
struct clsInsertFieldsInRTB::InheritedField {
  std::string_view contactColumn;
  const char* companyColumn;
  bool ownComesFirst = false;
};

using Self = clsInsertFieldsInRTB;

const Self::InheritedField Self::inheritedFields[] = {
    {"BusinessPhone_Main", "OfficeNumber", true},
    {"BusinessPhone_Fax", "FaxNumber", true},
    {"BusinessAddress", "Address"},
    {"BusinessCity", "City"},
    {"BusinessProvince", "Province"},
    {"BusinessPostalCode", "PostalCode"},
    {"BusinessCountry", "Country"},
};

const Self::InheritedField* clsInsertFieldsInRTB::findInheritedField(const std::string& name) {
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

const Self::DerivedField* clsInsertFieldsInRTB::findDerivedField(MergeSource source,
                                                                 const std::string& name) {
  for (const DerivedField& field : derivedFields) {
    if (field.source != source) continue;
    if (field.name.size() != name.size()) continue;
    if (field.anyCase ? equalIgnoreCase(field.name, name) : field.name == name) return &field;
  }
  return nullptr;
}

std::string clsInsertFieldsInRTB::getDataFieldFromRecordset(std::string& fieldName) {
  return textOf(fieldValue(std::nullopt, fieldName));
}

/// Without a source that of the list's current row is read.
Value clsInsertFieldsInRTB::fieldValue(std::optional<MergeSource> source, std::string& fieldName) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getDataFieldFromRecordset", Value{},
                   [&](Step& step, Value& result) {
                     if (!isDatabaseOpen(step)) return;
                     if (!source) source = sourceOfCurrentField(step);
                     if (source) result = readFieldOf(step, *source, fieldName);
                   });
}

Value clsInsertFieldsInRTB::readFieldOf(Step& step, MergeSource source, std::string& fieldName) {
  const InheritedField* const inherited =
      source == MergeSource::contact ? findInheritedField(fieldName) : nullptr;
  if (inherited && isInheritingCompany(step)) return readInherited(step, *inherited);
  const DerivedField* const derived = findDerivedField(source, fieldName);
  if (derived && derived->read) return (this->*derived->read)(step, source, fieldName);
  return readColumn(step, source, fieldName);
}

std::optional<MergeSource> clsInsertFieldsInRTB::sourceOfCurrentField(Step& step) {
  const std::string group =
      step.value(std::string{}, [&] { return toText(fields().getItem(field_column::group)); });
  return findMergeSource(group);
}

Value clsInsertFieldsInRTB::readColumn(Step& step, MergeSource source, const std::string& column) {
  return step.value(Value{},
                    [&] { return database().getFieldValue(sources_.handleOf(source), column); });
}

/// True when the contact goes by its company's address and the company's row is current.
bool clsInsertFieldsInRTB::isInheritingCompany(Step& step) {
  if (companyID < 0) return false;
  const bool inherits = step.value(false, [&] {
    const Value flag =
        database().getFieldValue(sources_.handleOf(MergeSource::contact), "InheritCompanyInfo");
    return !flag.isNull() && toFlag(flag);
  });
  return inherits && sources_.openOnDemand(step, MergeSource::company) &&
         sources_.goToRow(step, MergeSource::company);
}

Value clsInsertFieldsInRTB::readInherited(Step& step, const InheritedField& field) {
  const auto read = [&](bool own) {
    return own ? readColumn(step, MergeSource::contact, std::string(field.contactColumn))
               : readColumn(step, MergeSource::company, field.companyColumn);
  };
  Value value = read(field.ownComesFirst);
  return isEmptyValue(value) ? read(!field.ownComesFirst) : value;
}

Value clsInsertFieldsInRTB::readContactAndSpouseName(Step& step, MergeSource, std::string&) {
  return step.value(std::string{},
                    [&] { return clients().getContactAndSpouseName(contactID, true, 2); });
}

Value clsInsertFieldsInRTB::readAbbreviatedProvince(Step& step, MergeSource source,
                                                    std::string& fieldName) {
  fieldName = replaceAllIgnoreCase(fieldName, "Abbreviated", "");
  std::string province = textOf(readColumn(step, source, fieldName));
  return getAbbreviatedProvince(province);
}

Value clsInsertFieldsInRTB::readCompanyType(Step& step, MergeSource, std::string&) {
  constexpr MergeSource source = MergeSource::clientAccounting;
  if (!sources_.openOnDemand(step, source) || !sources_.goToRow(step, source)) return {};
  const Value code = readColumn(step, source, "CompanyType");
  if (isEmptyValue(code)) return {};
  return step.value(std::string{}, [&] {
    std::int16_t number = toInteger16(code);
    return getCompanyTypeStringFromCompanyTypeNum(number);
  });
}

Value clsInsertFieldsInRTB::readCodedField(Step& step, MergeSource source, std::string& fieldName) {
  const DerivedField& field = *findDerivedField(source, fieldName);
  std::int16_t code = field.startingCode;
  const Value column = readColumn(step, source, fieldName);
  if (!isEmptyValue(column)) step.assign(code, [&] { return toInteger16(column); });
  return field.textOf(code);
}

/// The day of the year alone.
Value clsInsertFieldsInRTB::readYearEnd(Step& step, MergeSource source, std::string& fieldName) {
  Value date = readColumn(step, source, fieldName);
  if (!isEmptyValue(date))
    step.assign(date, [&] { return Value(formatDateTime(toDateTime(date), "mmmm d")); });
  return date;
}

/// A task's times are read where an appointment's are; without an open appointment that fails, and
/// the field has no value.
Value clsInsertFieldsInRTB::readTimeDuration(Step& step, MergeSource source, std::string&) {
  const RecordsetHandle handle = sources_.handleOf(
      source == MergeSource::docket ? MergeSource::docket : MergeSource::appointment);
  return step.value(std::string{}, [&] {
    DateTime from = toDateTime(database().getFieldValue(handle, "TimeFrom"));
    DateTime to = toDateTime(database().getFieldValue(handle, "TimeTo"));
    return getTimeDurationFieldValue(from, to);
  });
}

void clsInsertFieldsInRTB::writeDataToField(const std::string& fieldName,
                                            const std::string& value) {
  procedure("Morvane.exe-clsInsertFieldsInRTB-writeDataToField", [&](Step& step) {
    if (fieldName.empty() || !isDatabaseOpen(step) || !verifyFieldListIsPopulated()) return;
    if (!findField(step, field_column::databaseField, fieldName)) return;
    const auto source = sourceOfCurrentField(step);
    if (!source) return;
    const DerivedField* const derived = findDerivedField(*source, fieldName);
    if (derived && !derived->isWritten) return;
    if (!sources_.openForWriting(step, *source) || !sources_.goToRow(step, *source)) return;
    if (*source == MergeSource::contact) writeInherited(step, fieldName, value);
    writeColumn(step, *source, fieldName, value);
  });
}

/// A contact that goes by its company's address changes it there as well.
void clsInsertFieldsInRTB::writeInherited(Step& step, const std::string& fieldName,
                                          const std::string& value) {
  const InheritedField* const field = findInheritedField(fieldName);
  if (!field || !sources_.openForWriting(step, MergeSource::company)) return;
  if (isInheritingCompany(step))
    writeColumn(step, MergeSource::company, field->companyColumn, value);
}

void clsInsertFieldsInRTB::writeColumn(Step& step, MergeSource source, const std::string& column,
                                       const std::string& value) {
  step.run([&] { updateField(sources_.handleOf(source), column.c_str(), value); });
}

}  // namespace autonotify
