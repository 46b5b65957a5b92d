#include "control/template_tools.h"

#include "contract/procedure.h"
#include "contract/tags.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_columns.h"
#include "merge/fields/field_list_kinds.h"
#include "merge/templates/template_check.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsNotificationTools", name>;

constexpr ColumnLookup keyOfKind{
    tagOf<"propagateTemplate">,
    {"SELECT ScheduleTypes.ScheduleTypeID FROM ScheduleTypes WHERE ScheduleTypes.ScheduleTypeID=",
     "ScheduleTypeID"}};

void listFields(clsInsertFieldsInRTB& engine, int listType) {
  engine.put_MergeFieldListUse(field_list_use::merging);
  engine.ListType = listType;
  bool noListBox = true;
  bool clearListBox = false;
  engine.createDefaultFieldListStructure(noListBox, clearListBox);
}

/// Throws where the host could not make the list.
GridColumnList& listOf(clsInsertFieldsInRTB& engine) {
  GridColumnList* list = engine.get_FieldList();
  if (!list) throw PlatformError(error_number::objectNotSet, "Object not set", "FieldList");
  return *list;
}

MergeFieldInfo readMergeField(Step& step, clsInsertFieldsInRTB& engine, int row) {
  const auto textOf = [&](int column) { return toText(listOf(engine).getItem(column)); };
  MergeFieldInfo field;
  bool withMarks = true;
  field.token = engine.parseListItem(row, withMarks);
  field.group = step.value(std::string{}, textOf, field_column::group);
  step.assign(field.dataType,
              [&] { return toInteger(listOf(engine).getItem(field_column::dataType)); });
  field.sample = step.value(std::string{}, textOf, field_column::sample);
  return field;
}

}  // namespace

std::vector<TemplateFault> findTemplateFaults(const std::string& templateText, bool isRTF) {
  using Faults = std::vector<TemplateFault>;
  return procedure(tagOf<"findTemplateFaults">, Faults{}, [&](Step& step, Faults& result) {
    clsInsertFieldsInRTB engine;
    listFields(engine, field_list_type::task);
    TemplateCheck check(step, [&](const std::string& name) { return engine.testStr(name); });
    const std::string text = engine.convertProvinceFields(templateText);
    result = check.allFaults(text, isRTF ? escapedMarks : bareMarks);
  });
}

std::string readTemplate(Id scheduleTypeID) {
  clsAutoNotifyTemplate kind;
  kind.openExistingScheduleType(scheduleTypeID);
  return kind.get_notificationComment();
}

std::string composeNotification(const std::string& templateText, Id notificationID) {
  clsAutoNotifyTemplate kind;
  kind.put_notificationComment(templateText);
  return kind.composeNotificationComment(notificationID);
}

void recomposeNotification(const std::string& templateText, Id notificationID) {
  clsAutoNotifyTemplate kind;
  kind.put_notificationComment(templateText);
  kind.changeNotificationComment(notificationID);
}

void propagateTemplate(Id typeId, const std::function<void(int rowsDone, int rows)>& progress) {
  // What belongs to no kind has the numbers of one that was never read.
  if (lookUpId(keyOfKind, typeId) < 0) return;
  clsAutoNotifyTemplate kind;
  kind.openExistingScheduleType(typeId);
  int rows = 0;
  int rowsDone = 0;
  kind.startResetNotificationComments = [&](std::int32_t count) { rows = count; };
  kind.incResetNotificationComments = [&] {
    ++rowsDone;
    if (progress) progress(rowsDone, rows);
  };
  kind.resetNotificationComments();
}

std::vector<MergeFieldInfo> listMergeFields(MergeUse use) {
  using Fields = std::vector<MergeFieldInfo>;
  return procedure(tagOf<"listMergeFields">, Fields{}, [&](Step& step, Fields& result) {
    clsInsertFieldsInRTB engine;
    listFields(engine, static_cast<int>(use));
    const int rows = step.value(0, [&] { return listOf(engine).getEntryCount(); });
    for (int row = 1; row <= rows; ++row) result.push_back(readMergeField(step, engine, row));
  });
}

}  // namespace autonotify
