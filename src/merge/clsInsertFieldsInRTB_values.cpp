#include "contract/tags.h"
#include "contract/windows.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_format.h"
#include "merge/records/merge_conversions.h"
#include "merge/records/merge_values.h"
#include "merge/records/record_fields.h"
#include "merge/records/task_records.h"
#include "platform/text.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

std::optional<MergeSource> sourceOf(const FieldCursor& field) {
  return findMergeSource(field.text(field_column::group));
}

Value readColumn(RecordsetHandle handle, const std::string& column) {
  return database().getFieldValue(handle, column);
}

std::string today(const DateFormat& format) {
  return format.text(platformClock().today());
}

FieldPlan planOfRow(const FieldCursor& field, FieldType type) {
  std::string column = field.text(field_column::databaseField);
  return planField(type, std::move(column), field.text(field_column::group));
}

/// Leaves `text` alone where the value stays in its text form.
void formatField(const Value& value, FieldType type, const DateFormat& format, std::string& text) {
  if (auto formatted = formattedField(value, type, format)) text = std::move(*formatted);
}

/// A value that cannot be printed by its type is shown as it is.
void printField(Step& step, Value&& value, FieldType type, const DateFormat& format,
                std::string& text) {
  if (isEmptyValue(value)) return;
  if (type == FieldType::text) {
    text = takeText(std::move(value));
  } else if (const DateTime* date = type == FieldType::date ? value.getIf<DateTime>() : nullptr) {
    std::optional<std::string> formatted = formattedDate(*date, format);
    text = formatted ? std::move(*formatted) : toText(value);
  } else {
    text = toText(value);
    step.run(formatField, value, type, format, text);
  }
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
  procedure(tagOf<"initializeDataRecordsetsForSingleDocMerge">, [&](Step& step) {
    closeAllRecordsets();
    if (isDatabaseOpen(step)) sources_.openForOneDocument(step, scope());
    createFieldListWithoutListBoxes();
  });
}

std::string clsInsertFieldsInRTB::getDataFieldInfo(int index, const std::string& format) {
  return fieldText(index, fieldDateFormat(format), nullptr);
}

std::string clsInsertFieldsInRTB::fieldText(int index, const DateFormat& format,
                                            const FieldPlan* plan) {
  return procedure(tagOf<"getDataFieldInfo">, std::string{}, [&](Step& step, std::string& result) {
    const FieldCursor field(step, fieldList_);
    if (!field.select(index)) return;
    const FieldType type = plan ? plan->type : static_cast<FieldType>(field.dataType());
    if (TestComment) {
      field.read(result, field_column::sample, textOf);
    } else if (isDatabaseOpen(step)) {
      Value value = plan ? readField(step, *plan) : readField(step, planOfRow(field, type));
      printField(step, std::move(value), type, format, result);
    }
    if (!result.empty() && ConvertStrToRTF) convertLines(result);
  });
}

FieldFate clsInsertFieldsInRTB::fateOf(Step& step, const FieldClaims& claims,
                                       const FieldClaim& claim) {
  if (claim.isToday()) return FieldFate::filled;
  const FieldCursor field(step, fieldList_);
  if (!field.select(claims.fields->field(claim.row).index)) return FieldFate::neverFilled;
  const FieldPlan plan = planField({}, {}, field.text(field_column::group));
  const bool isRead = plan.isDocuments || (plan.source && isReadForTasks(*plan.source));
  if (!isRead) return FieldFate::neverFilled;
  const std::string value = textOfClaim(claims, claim);
  return trim(value).empty() ? FieldFate::withoutValue : FieldFate::filled;
}

/// The field's value, not yet formatted.
Value clsInsertFieldsInRTB::readField(Step& step, const FieldPlan& plan) {
  if (plan.isDocuments) return taskID >= 0 ? getDocsAndInstructionsList() : std::string{};
  if (!plan.source || !sources_.openOnDemand(step, scope(), *plan.source)) return {};
  yieldToHost(step, 2);
  if (!sources_.goToRow(step, scope(), *plan.source)) return {};
  return valueInRow(plan);
}

Value clsInsertFieldsInRTB::valueInRow(const FieldPlan& plan) {
  return procedure(tagOf<"getDataFieldFromRecordset">, Value{}, [&](Step& step, Value& result) {
    if (!isDatabaseOpen(step)) return;
    if (plan.isColumn) {
      step.assign(result, readColumn, sources_.handleOf(*plan.source), plan.column);
    } else {
      std::string name = plan.column;
      result = RecordFields(step, sources_, scope()).read(*plan.source, name);
    }
  });
}

std::string clsInsertFieldsInRTB::getDataFieldFromRecordset(std::string& fieldName) {
  const auto read = [&](Step& step, std::string& result) {
    if (!isDatabaseOpen(step)) return;
    const auto source = sourceOf(FieldCursor(step, fieldList_));
    if (!source) return;
    RecordFields fields(step, sources_, scope());
    result = textOf(fields.read(*source, fieldName));
  };
  return procedure(tagOf<"getDataFieldFromRecordset">, std::string{}, read);
}

std::string clsInsertFieldsInRTB::getMergeDataFromFieldName(const std::string& fieldName) {
  return valueOfField(tagOf<"getMergeDataFromFieldName">, field_column::databaseField, fieldName);
}

std::string clsInsertFieldsInRTB::getMergeDataFromDisplayName(const std::string& displayName) {
  return valueOfField(tagOf<"getMergeDataFromDisplayName">, field_column::displayName, displayName);
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
  return translateName(tagOf<"getDBFieldNameFromDisplayFieldName">, fieldList_,
                       field_column::displayName, field_column::databaseField, name);
}

std::string clsInsertFieldsInRTB::getDisplayFieldNameFromDBFieldName(std::string& name) {
  return translateName(tagOf<"getDisplayFieldNameFromDBFieldName">, fieldList_,
                       field_column::databaseField, field_column::displayName, name);
}

void clsInsertFieldsInRTB::writeDataToField(const std::string& fieldName,
                                            const std::string& value) {
  procedure(tagOf<"writeDataToField">, [&](Step& step) {
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
  return todaysText(fieldDateFormat(format));
}

std::string clsInsertFieldsInRTB::todaysText(const DateFormat& format) {
  return procedure(tagOf<"getTodaysDate">, std::string{}, [&](Step& step, std::string& result) {
    step.assign(result, today, format);
    if (!result.empty() && ConvertStrToRTF) convertLines(result);
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
  std::string converted = text;
  convertLines(converted);
  return converted;
}

void clsInsertFieldsInRTB::convertLines(std::string& text) {
  procedure(tagOf<"convertToRTF">, [&](Step&) {
    if (text.find("\r\n") == std::string::npos) return;
    text = replaceAll(text, "\r\n", UseWordWrap ? "\\par \r\n" : ", \r\n");
  });
}

}  // namespace autonotify
