#pragma once

#include "contract/ItemLinksClass.h"
#include "control/component.h"
#include "platform/Value.h"

namespace autonotify {

/// A notification as the host carries it about: its thirteen item links and two flags.
///
/// Assigning a link a value other than the held one sets IsDirty; the flags are plain storage.
class clsAutoNotification : public ComponentObject {
 public:
  /// The link object; owned by this object, null after Terminate.
  virtual ItemLinksClass* get_ItemLinksClass() = 0;

  virtual Id get_ApptIDNum() = 0;
  virtual void put_ApptIDNum(Id value) = 0;
  virtual Id get_TaskIDNum() = 0;
  virtual void put_TaskIDNum(Id value) = 0;
  virtual Id get_DocketIDNum() = 0;
  virtual void put_DocketIDNum(Id value) = 0;
  virtual Id get_ToDoIDNum() = 0;
  virtual void put_ToDoIDNum(Id value) = 0;
  virtual Id get_ScheduleIDNum() = 0;
  virtual void put_ScheduleIDNum(Id value) = 0;
  virtual Id get_ScheduleTypeIDNum() = 0;
  virtual void put_ScheduleTypeIDNum(Id value) = 0;
  virtual Id get_OperatingProcedureIDNum() = 0;
  virtual void put_OperatingProcedureIDNum(Id value) = 0;
  virtual Id get_ProjectIDNum() = 0;
  virtual void put_ProjectIDNum(Id value) = 0;
  virtual Id get_projectStepIDNum() = 0;
  virtual void put_projectStepIDNum(Id value) = 0;
  virtual Id get_PersonalTaxStatusIDNum() = 0;
  virtual void put_PersonalTaxStatusIDNum(Id value) = 0;
  virtual Id get_MissingInfoIDNum() = 0;
  virtual void put_MissingInfoIDNum(Id value) = 0;
  virtual Id get_CommunicationLogIDNum() = 0;
  virtual void put_CommunicationLogIDNum(Id value) = 0;
  virtual Id get_DocumentIDNum() = 0;
  virtual void put_DocumentIDNum(Id value) = 0;

  virtual bool get_isSavedFlag() = 0;
  virtual void put_isSavedFlag(bool value) = 0;
  virtual bool get_IsDirty() = 0;
  virtual void put_IsDirty(bool value) = 0;

  /// Ends the link object and lets go of it. A person who leaves at its end keeps it.
  virtual void Terminate() = 0;
  /// All links to -1, both flags to False.
  virtual void resetAllValues() = 0;
};

}  // namespace autonotify
