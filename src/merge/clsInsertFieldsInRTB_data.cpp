#include "merge/clsInsertFieldsInRTB.h"
#include "merge/field_catalogue.h"
#include "merge/field_list_columns.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr std::string_view documentsGroup = "DocsAndInstructionsInfo";
constexpr int firstFormattedYear = 1900;

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
        const std::string id = std::to_string(scheduleID) + ";";
        const bool isCurrent = withFirstRow(
            step, "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=" + id,
            keysetRead, [&](RecordsetHandle handle) { result = readId(step, handle, "TaskID"); });
        if (isCurrent) return;
        withFirstRow(step,
                     "SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks "
                     "WHERE ScheduleIDNum=" +
                         id,
                     keysetRead,
                     [&](RecordsetHandle handle) { result = readId(step, handle, "oldTaskID"); });
      });
}

std::string clsInsertFieldsInRTB::getDataFieldInfo(int index, const std::string& format) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getDataFieldInfo", std::string{},
                   [&](Step& step, std::string& result) {
                     if (!step.value(false, [&] { return fields().selectEntry(index); })) return;
                     const int type = step.value(
                         0, [&] { return toInteger(fields().getItem(field_column::dataType)); });
                     if (TestComment) {
                       step.assign(result, [&] {
                         const Value sample = fields().getItem(field_column::sample);
                         return toText(generalUtilities().textOrDefault(sample, false));
                       });
                     } else if (isDatabaseOpen(step)) {
                       result = readCurrentField(step);
                       if (!result.empty()) formatByType(step, type, format, result);
                     }
                     if (!result.empty() && ConvertStrToRTF) result = convertToRTF(result);
                   });
}

/// The field of the list's current row, as text and not yet formatted.
std::string clsInsertFieldsInRTB::readCurrentField(Step& step) {
  std::string fieldName;
  step.assign(fieldName, [&] { return toText(fields().getItem(field_column::databaseField)); });
  const std::string group =
      step.value(std::string{}, [&] { return toText(fields().getItem(field_column::group)); });
  if (group == documentsGroup) return taskID >= 0 ? getDocsAndInstructionsList() : std::string{};
  const auto source = findMergeSource(group);
  if (!source || !sources_.openOnDemand(step, *source)) return {};
  step.run([] { formHost().pumpMessages(); });
  step.run([] { formHost().pumpMessages(); });
  if (!sources_.goToRow(step, *source)) return {};
  return getDataFieldFromRecordset(fieldName);
}

void clsInsertFieldsInRTB::formatByType(Step& step, int dataType, const std::string& format,
                                        std::string& value) {
  switch (static_cast<FieldType>(dataType)) {
    case FieldType::date:
      step.run([&] {
        const DateTime date = toDateTime(value);
        if (date.year() < firstFormattedYear) return;
        value = formatDateTime(date, format.empty() ? "mmm d, yyyy" : format);
      });
      break;
    case FieldType::time:
      step.assign(value, [&] { return formatDateTime(toDateTime(value), "h:Nn am/pm"); });
      break;
    case FieldType::currency:
      step.assign(value, [&] { return formatNumber(toDouble(value), "$#,##0.00;$-#,##0.00"); });
      break;
    case FieldType::yesNo:
      step.assign(value, [&] { return toFlag(value) ? "Yes" : "No"; });
      break;
    case FieldType::duration:
      step.assign(value, [&] {
        return validation().getDurationText(toInteger(Value(toDouble(value) * 60)));
      });
      break;
    case FieldType::text:
    case FieldType::documentsList:
      break;
  }
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
