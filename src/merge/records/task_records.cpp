#include "merge/records/task_records.h"

#include "contract/rows.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

/// Where the task of a schedule entry stands: among the tasks, or in the archive.
constexpr struct {
  const char* statement;
  const char* column;
} taskSources[] = {
    {"SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=", "TaskID"},
    {"SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE "
     "ScheduleIDNum=",
     "oldTaskID"},
};

std::string documentsStatement(Id taskID) {
  return "SELECT OperatingProcedures.TaskIDNum, OperatingProcedures.OpProcedureScopeType, "
         "OperatingProcedures.OrderNum, OperatingProcedures.OpProcedureType, "
         "OperatingProcedures.OpProdedureName FROM OperatingProcedures WHERE "
         "OperatingProcedures.TaskIDNum =" +
         std::to_string(taskID) +
         " AND OperatingProcedures.OpProcedureScopeType=2 ORDER BY OperatingProcedures.OrderNum;";
}

/// What a procedure of this type has ahead of its name; null for a type that is not listed.
const char* lineStartOf(Id operatingProcedureType) {
  switch (operatingProcedureType) {
    case 1:
      return "\t- ";
    case 2:
      return "\t- Document Required - ";
    default:
      return nullptr;
  }
}

void addDocuments(Step& step, Id taskID, std::string& lines) {
  if (!isDatabaseOpen(step)) return;
  for (const Row& row : Rows(step, documentsStatement(taskID), forwardRead)) {
    const Value name = row.value("OpProdedureName");
    if (isEmpty(step, name)) continue;
    const char* const start = lineStartOf(row.id("OpProcedureType"));
    if (start) step.run([&] { lines.append(start + toText(name) + "\r\n"); });
  }
}

}  // namespace

Id getTaskIDFromScheduleIDNum(Id scheduleID) {
  return procedure(tagOf<"getTaskIDFromScheduleIDNum">, noId, [&](Step& step, Id& result) {
    if (scheduleID < 0 || !isDatabaseOpen(step)) return;
    for (const auto& [statement, column] : taskSources) {
      const Rows row(step, statement, scheduleID, keysetRead);
      if (!row) continue;
      result = row.id(column);
      return;
    }
  });
}

std::string getDocsAndInstructionsList(Id taskID) {
  const auto list = [&](Step& step, std::string& result) { addDocuments(step, taskID, result); };
  return procedure(tagOf<"getDocsAndInstructionsList">, std::string{}, list);
}

}  // namespace autonotify
