#pragma once

#include "contract/errorClass.h"
#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

class DatabaseReference;

/// The links of one notification. Positions of ItemLinksClass::get_link and put_link.
enum class ItemLink {
  ApptIDNum,
  TaskIDNum,
  DocketIDNum,
  ToDoIDNum,
  ScheduleIDNum,
  ScheduleTypeIDNum,
  OperatingProcedureIDNum,
  ProjectIDNum,
  projectStepIDNum,
  PersonalTaxStatusIDNum,
  MissingInfoIDNum,
  CommunicationLogIDNum,
  DocumentIDNum,
};
inline constexpr int itemLinkCount = 13;

/// Host data with one id for each link; all are -1 after resetAllValues.
class ItemLinksClass : public HostObject {
 public:
  static constexpr const char* className = "ItemLinksClass";
  virtual void put_errorClass(errorClass* value) = 0;
  virtual void put_DatabaseReference(DatabaseReference* value) = 0;
  virtual Id get_link(ItemLink link) = 0;
  virtual void put_link(ItemLink link, Id value) = 0;
  virtual void resetAllValues() = 0;
  /// Lets go of what it holds; the object is not used after that.
  virtual void Terminate() = 0;
};

}  // namespace autonotify
