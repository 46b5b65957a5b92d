#include "merge/clsInsertFieldsInRTB.h"

#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

std::unique_ptr<FieldList> makeFieldList() {
  return std::make_unique<FieldList>(createHostObject<GridColumnList>());
}

}  // namespace

clsInsertFieldsInRTB::clsInsertFieldsInRTB() {
  procedure(tagOf<"Class_Initialize">, [&](Step& step) { step.assign(fieldList_, makeFieldList); });
}

clsInsertFieldsInRTB::~clsInsertFieldsInRTB() {
  endQuietly([this] { Terminate(); });
}

void clsInsertFieldsInRTB::Terminate() {
  procedure(tagOf<"Terminate">, [&](Step& step) {
    if (fieldList_) {
      step.run(&FieldList::clearEntries, *fieldList_);
      fieldList_.reset();
    }
    closeAllRecordsets();
  });
}

void clsInsertFieldsInRTB::closeAllRecordsets() {
  procedure(tagOf<"closeAllRecordsets">, [&](Step& step) { sources_.closeAll(step); });
}

MergeScope clsInsertFieldsInRTB::scope() const {
  return {*this, mergeFieldListUse_ == field_list_use::bulkMerging,
          mergeFieldListUse_ == field_list_use::updating};
}

void clsInsertFieldsInRTB::put_MergeFieldListUse(int use) {
  mergeFieldListUse_ = use;
  if (use == field_list_use::assigning || use == field_list_use::updating)
    ShowListCategoryHeaders = false;
}

void clsInsertFieldsInRTB::put_scheduleID(Id scheduleID) {
  taskID = getTaskIDFromScheduleIDNum(scheduleID);
}

GridColumnList* clsInsertFieldsInRTB::get_FieldList() {
  GridColumnList* const none = nullptr;
  return procedure(tagOf<"get_FieldList">, none, [&](Step& step, GridColumnList*& result) {
    if (fieldList_) result = fieldList_->lend(step);
  });
}

void clsInsertFieldsInRTB::resetAllItemIDs() {
  static_cast<MergeIds&>(*this) = {};
}

}  // namespace autonotify
