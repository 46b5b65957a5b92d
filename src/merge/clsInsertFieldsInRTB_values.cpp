#include "contract/tags.h"
#include "contract/windows.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_format.h"
#include "merge/records/merge_conversions.h"
#include "merge/records/merge_values.h"
#include "merge/records/record_fields.h"
#include "merge/records/task_records.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tag = procedureTag<"clsInsertFieldsInRTB", name>;

constexpr std::string_view documentsGroup = "DocsAndInstructionsInfo";

std::optional<MergeSource> sourceOf(const FieldCursor& field) {
  return findMergeSource(field.text(field_column::group));
}

std::string today(const std::string& format) {
  return formatDateTime(platformClock().today(), format.empty() ? "mmm d, yyyy" : format);
}

/// Leaves `text` alone where the value stays in its text form.
void formatField(const Value& value, FieldType type, const std::string& format, std::string& text) {
  if (auto formatted = formattedField(value, type, format)) text = std::move(*formatted);
}

/// The field that stands for the name of a company that there is not; empty for any other name.
std::string contactNameFor(const FieldCursor& field, int column, const std::string& name) {
  const std::string sought = upperCase(name);
  if (column == field_column::databaseField) return sought == "COMPANYNAME" ? "DisplayName" : "";
  if (sought != "COMPANY NAME") return {};
  for (const char* contactName : {"Contact Display Name", "Contact Full Name"})
    if (field.find(column, contactName)) return contactName;
  return {};
}

/// A name by one column of the field list in place of that by the other; an unknown one comes back.
std::string translateName(std::string_view frameTag, const std::unique_ptr<FieldList>& list,
                          int from, int to, const std::string& name) {
  return procedure(frameTag, name, [&](Step& step, std::string& result) {
    const FieldCursor field(step, list);
    if (field.find(from, name)) field.read(result, to);
  });
}

}  // namespace

void clsInsertFieldsInRTB::initializeDataRecordsetsForSingleDocMerge() {
  procedure(tag<"initializeDataRecordsetsForSingleDocMerge">, [&](Step& step) {
    closeAllRecordsets();
    if (isDatabaseOpen(step)) sources_.openForOneDocument(step, scope());
    createFieldListWithoutListBoxes();
  });
}

std::string clsInsertFieldsInRTB::getDataFieldInfo(int index, const std::string& format) {
  return procedure(tag<"getDataFieldInfo">, std::string{}, [&](Step& step, std::string& result) {
    const FieldCursor field(step, fieldList_);
    if (!field.select(index)) return;
    const auto type = static_cast<FieldType>(field.dataType());
    if (TestComment) {
      field.read(result, field_column::sample, textOf);
    } else if (isDatabaseOpen(step)) {
      const Value value = readCurrentField(step);
      step.assign(result, textOf, value);
      if (!isEmptyValue(value)) step.run(formatField, value, type, format, result);
    }
    if (!result.empty() && ConvertStrToRTF) result = convertToRTF(result);
  });
}

FieldFate clsInsertFieldsInRTB::fateOf(Step& step, const FieldClaim& claim) {
  if (claim.row == 0) return FieldFate::filled;  // today's date
  const FieldCursor field(step, fieldList_);
  if (!field.select(claim.index)) return FieldFate::neverFilled;
  const std::string group = field.text(field_column::group);
  const auto source = findMergeSource(group);
  const bool isRead = group == documentsGroup || (source && isReadForTasks(*source));
  if (!isRead) return FieldFate::neverFilled;
  const bool isPlain = claim.format == TemplateLayout::Reading::plain;
  std::string format(isPlain ? std::string_view{} : mergeDateFormats[claim.format]);
  const std::string value = getDataFieldInfo(claim.index, format);
  return trim(value).empty() ? FieldFate::withoutValue : FieldFate::filled;
}

/// The field of the list's current row, not yet formatted.
Value clsInsertFieldsInRTB::readCurrentField(Step& step) {
  const FieldCursor field(step, fieldList_);
  std::string fieldName = field.text(field_column::databaseField);
  const std::string group = field.text(field_column::group);
  if (group == documentsGroup) return taskID >= 0 ? getDocsAndInstructionsList() : std::string{};
  const auto source = findMergeSource(group);
  if (!source || !sources_.openOnDemand(step, scope(), *source)) return {};
  yieldToHost(step, 2);
  if (!sources_.goToRow(step, scope(), *source)) return {};
  return fieldValue(source, fieldName);
}

std::string clsInsertFieldsInRTB::getDataFieldFromRecordset(std::string& fieldName) {
  return textOf(fieldValue(std::nullopt, fieldName));
}

/// Without a source that of the list's current row is read.
Value clsInsertFieldsInRTB::fieldValue(std::optional<MergeSource> source, std::string& fieldName) {
  return procedure(tag<"getDataFieldFromRecordset">, Value{}, [&](Step& step, Value& result) {
    if (!isDatabaseOpen(step)) return;
    if (!source) source = sourceOf(FieldCursor(step, fieldList_));
    if (source) result = RecordFields(step, sources_, scope()).read(*source, fieldName);
  });
}

std::string clsInsertFieldsInRTB::getMergeDataFromFieldName(const std::string& fieldName) {
  return valueOfField(tag<"getMergeDataFromFieldName">, field_column::databaseField, fieldName);
}

std::string clsInsertFieldsInRTB::getMergeDataFromDisplayName(const std::string& displayName) {
  return valueOfField(tag<"getMergeDataFromDisplayName">, field_column::displayName, displayName);
}

std::string clsInsertFieldsInRTB::valueOfField(std::string_view frameTag, int column,
                                               const std::string& name) {
  return procedure(frameTag, std::string{}, [&](Step& step, std::string& result) {
    if (name.empty() || !verifyFieldListIsPopulated()) return;
    const FieldCursor field(step, fieldList_);
    if (isMergedForContactAlone()) result = contactNameFor(field, column, name);
    if (!field.find(column, name)) return;
    int index = 0;
    field.readKey(index);
    result = getDataFieldInfo(index, {});
  });
}

std::string clsInsertFieldsInRTB::getDBFieldNameFromDisplayFieldName(std::string& name) {
  return translateName(tag<"getDBFieldNameFromDisplayFieldName">, fieldList_,
                       field_column::displayName, field_column::databaseField, name);
}

std::string clsInsertFieldsInRTB::getDisplayFieldNameFromDBFieldName(std::string& name) {
  return translateName(tag<"getDisplayFieldNameFromDBFieldName">, fieldList_,
                       field_column::databaseField, field_column::displayName, name);
}

void clsInsertFieldsInRTB::writeDataToField(const std::string& fieldName,
                                            const std::string& value) {
  procedure(tag<"writeDataToField">, [&](Step& step) {
    if (fieldName.empty() || !isDatabaseOpen(step) || !verifyFieldListIsPopulated()) return;
    const FieldCursor field(step, fieldList_);
    if (!field.find(field_column::databaseField, fieldName)) return;
    const auto source = sourceOf(field);
    if (source) RecordFields(step, sources_, scope()).write(*source, fieldName, value);
  });
}

Id clsInsertFieldsInRTB::getTaskIDFromScheduleIDNum(Id scheduleID) {
  return autonotify::getTaskIDFromScheduleIDNum(scheduleID);
}

std::string clsInsertFieldsInRTB::getDocsAndInstructionsList() {
  return autonotify::getDocsAndInstructionsList(taskID);
}

std::string clsInsertFieldsInRTB::getTodaysDate(std::string& format) {
  return procedure(tag<"getTodaysDate">, std::string{}, [&](Step& step, std::string& result) {
    step.assign(result, today, format);
    if (!result.empty() && ConvertStrToRTF) result = convertToRTF(result);
  });
}

std::string clsInsertFieldsInRTB::getTimeDurationFieldValue(DateTime& from, DateTime& to) {
  return autonotify::getTimeDurationFieldValue(from, to);
}

std::string clsInsertFieldsInRTB::getAbbreviatedProvince(std::string& province) {
  return autonotify::getAbbreviatedProvince(province);
}

std::string clsInsertFieldsInRTB::getFullProvinceString(std::string& province) {
  return autonotify::getFullProvinceString(province);
}

std::string clsInsertFieldsInRTB::convertToRTF(const std::string& text) {
  return procedure(tag<"convertToRTF">, text, [&](Step&, std::string& result) {
    result = replaceAll(text, "\r\n", UseWordWrap ? "\\par \r\n" : ", \r\n");
  });
}

}  // namespace autonotify
