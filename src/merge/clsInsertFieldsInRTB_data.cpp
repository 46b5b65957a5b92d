#include "contract/windows.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_catalogue.h"
#include "merge/fields/field_list_columns.h"
#include "merge/records/merge_values.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr std::string_view documentsGroup = "DocsAndInstructionsInfo";
constexpr int firstFormattedYear = 1900;

/// Nothing for a value that prints in its text form.
std::optional<std::string> formattedValue(const Value& value, FieldType type,
                                          const std::string& format) {
  switch (type) {
    case FieldType::date: {
      const DateTime date = toDateTime(value);
      if (date.year() < firstFormattedYear) return std::nullopt;
      return formatDateTime(date, format.empty() ? "mmm d, yyyy" : format);
    }
    case FieldType::time:
      return formatDateTime(toDateTime(value), "h:Nn am/pm");
    case FieldType::currency:
      return formatNumber(toDouble(value), "$#,##0.00;$-#,##0.00");
    case FieldType::yesNo:
      return toFlag(value) ? "Yes" : "No";
    case FieldType::duration:
      return validation().getDurationText(toInteger(Value(toDouble(value) * 60)));
    case FieldType::text:
    case FieldType::documentsList:
      break;
  }
  return std::nullopt;
}

}  // namespace

void clsInsertFieldsInRTB::initializeDataRecordsetsForSingleDocMerge() {
  procedure("Morvane.exe-clsInsertFieldsInRTB-initializeDataRecordsetsForSingleDocMerge",
            [&](Step& step) {
              closeAllRecordsets();
              if (isDatabaseOpen(step)) sources_.openForOneDocument(step);
              createFieldListWithoutListBoxes();
            });
}

Id clsInsertFieldsInRTB::getTaskIDFromScheduleIDNum(Id scheduleID) {
  return procedure(
      "Morvane.exe-clsInsertFieldsInRTB-getTaskIDFromScheduleIDNum", noId,
      [&](Step& step, Id& result) {
        if (scheduleID < 0 || !isDatabaseOpen(step)) return;
        const bool isCurrent = withRow(
            step,
            "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=", scheduleID,
            keysetRead, [&](RecordsetHandle handle) { result = readId(step, handle, "TaskID"); });
        if (isCurrent) return;
        withRow(step,
                "SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM "
                "archiveTasks WHERE ScheduleIDNum=",
                scheduleID, keysetRead,
                [&](RecordsetHandle handle) { result = readId(step, handle, "oldTaskID"); });
      });
}

std::string clsInsertFieldsInRTB::getDataFieldInfo(int index, const std::string& format) {
  return procedure(
      "Morvane.exe-clsInsertFieldsInRTB-getDataFieldInfo", std::string{},
      [&](Step& step, std::string& result) {
        if (!step.value(false, [&] { return fields().selectEntry(index); })) return;
        const int type =
            step.value(0, [&] { return toInteger(fields().getItem(field_column::dataType)); });
        if (TestComment) {
          step.assign(result, [&] { return textOf(fields().getItem(field_column::sample)); });
        } else if (isDatabaseOpen(step)) {
          const Value value = readCurrentField(step);
          step.assign(result, [&] { return textOf(value); });
          formatByType(step, value, type, format, result);
        }
        if (!result.empty() && ConvertStrToRTF) result = convertToRTF(result);
      });
}

/// The field of the list's current row, not yet formatted.
Value clsInsertFieldsInRTB::readCurrentField(Step& step) {
  std::string fieldName;
  step.assign(fieldName, [&] { return toText(fields().getItem(field_column::databaseField)); });
  const std::string group =
      step.value(std::string{}, [&] { return toText(fields().getItem(field_column::group)); });
  if (group == documentsGroup) return taskID >= 0 ? getDocsAndInstructionsList() : std::string{};
  const auto source = findMergeSource(group);
  if (!source || !sources_.openOnDemand(step, *source)) return {};
  yieldToHost(step, 2);
  if (!sources_.goToRow(step, *source)) return {};
  return fieldValue(source, fieldName);
}

/// Leaves the result alone where the value stays in its text form.
void clsInsertFieldsInRTB::formatByType(Step& step, const Value& value, int dataType,
                                        const std::string& format, std::string& result) {
  if (isEmptyValue(value)) return;
  step.assign(result, [&] {
    return formattedValue(value, static_cast<FieldType>(dataType), format).value_or(result);
  });
}

std::string clsInsertFieldsInRTB::getMergeDataFromFieldName(const std::string& fieldName) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getMergeDataFromFieldName", std::string{},
                   [&](Step& step, std::string& result) {
                     if (fieldName.empty() || !verifyFieldListIsPopulated()) return;
                     if (isMergedForContactAlone() && upperCase(fieldName) == "COMPANYNAME")
                       result = "DisplayName";
                     readFieldByName(step, field_column::databaseField, fieldName, result);
                   });
}

std::string clsInsertFieldsInRTB::getMergeDataFromDisplayName(const std::string& displayName) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getMergeDataFromDisplayName", std::string{},
                   [&](Step& step, std::string& result) {
                     if (displayName.empty() || !verifyFieldListIsPopulated()) return;
                     if (isMergedForContactAlone() && upperCase(displayName) == "COMPANY NAME") {
                       for (const char* name : {"Contact Display Name", "Contact Full Name"}) {
                         if (!findField(step, field_column::displayName, name)) continue;
                         result = name;
                         break;
                       }
                     }
                     readFieldByName(step, field_column::displayName, displayName, result);
                   });
}

/// Makes the first row with this item current; False when there is none.
bool clsInsertFieldsInRTB::findField(Step& step, int column, const std::string& name) {
  return step.value(false, [&] { return fields().findEntry(column, name) >= 0; });
}

void clsInsertFieldsInRTB::readFieldByName(Step& step, int column, const std::string& name,
                                           std::string& result) {
  if (!findField(step, column, name)) return;
  int index = 0;
  step.assign(index, [&] { return toInteger(fields().getEntryKey()); });
  result = getDataFieldInfo(index, {});
}

std::string clsInsertFieldsInRTB::getDBFieldNameFromDisplayFieldName(std::string& name) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getDBFieldNameFromDisplayFieldName", name,
                   [&](Step& step, std::string& result) {
                     translateName(step, field_column::displayName, field_column::databaseField,
                                   result);
                   });
}

std::string clsInsertFieldsInRTB::getDisplayFieldNameFromDBFieldName(std::string& name) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getDisplayFieldNameFromDBFieldName", name,
                   [&](Step& step, std::string& result) {
                     translateName(step, field_column::databaseField, field_column::displayName,
                                   result);
                   });
}

void clsInsertFieldsInRTB::translateName(Step& step, int from, int to, std::string& name) {
  if (!findField(step, from, name)) return;
  step.assign(name, [&] { return toText(fields().getItem(to)); });
}

}  // namespace autonotify
