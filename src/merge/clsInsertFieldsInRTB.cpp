#include "merge/clsInsertFieldsInRTB.h"

namespace autonotify {

clsInsertFieldsInRTB::clsInsertFieldsInRTB() {
  procedure("Morvane.exe-clsInsertFieldsInRTB-Class_Initialize", [&](Step& step) {
    step.assign(fieldList_,
                [] { return std::make_unique<FieldList>(createHostObject<GridColumnList>()); });
  });
}

clsInsertFieldsInRTB::~clsInsertFieldsInRTB() {
  endQuietly([this] { Terminate(); });
}

void clsInsertFieldsInRTB::Terminate() {
  procedure("Morvane.exe-clsInsertFieldsInRTB-Terminate", [&](Step& step) {
    if (fieldList_) {
      step.run([&] { fieldList_->clearEntries(); });
      fieldList_.reset();
    }
    closeAllRecordsets();
  });
}

void clsInsertFieldsInRTB::closeAllRecordsets() {
  procedure("Morvane.exe-clsInsertFieldsInRTB-closeAllRecordsets",
            [&](Step& step) { sources_.closeAll(step); });
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
  return procedure("Morvane.exe-clsInsertFieldsInRTB-get_FieldList",
                   static_cast<GridColumnList*>(nullptr), [&](Step& step, GridColumnList*& result) {
                     if (fieldList_) result = fieldList_->lend(step);
                   });
}

FieldList& clsInsertFieldsInRTB::fields() {
  if (!fieldList_) throw PlatformError(error_number::objectNotSet, "Object not set", "FieldList");
  return *fieldList_;
}

void clsInsertFieldsInRTB::resetAllItemIDs() {
  for (Id* id : {&companyID, &contactID, &firmID, &userID, &appointmentID, &docketId, &taskID})
    *id = noId;
}

}  // namespace autonotify
