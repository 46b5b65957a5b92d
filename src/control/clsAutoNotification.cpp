#include "control/clsAutoNotification.h"

#include "contract/procedure.h"
#include "control/component_objects.h"
#include "store/modItemLinks.h"

namespace autonotify {
namespace {

class AutoNotification final : public clsAutoNotification {
 public:
  AutoNotification() : links_(ItemLinksClassInit()) { resetAllValues(); }
  ~AutoNotification() override {
    endQuietly([this] { Terminate(); });
  }

  ItemLinksClass* get_ItemLinksClass() override { return links_.get(); }

  Id get_ApptIDNum() override { return get(ItemLink::ApptIDNum); }
  void put_ApptIDNum(Id value) override { put(ItemLink::ApptIDNum, value); }
  Id get_TaskIDNum() override { return get(ItemLink::TaskIDNum); }
  void put_TaskIDNum(Id value) override { put(ItemLink::TaskIDNum, value); }
  Id get_DocketIDNum() override { return get(ItemLink::DocketIDNum); }
  void put_DocketIDNum(Id value) override { put(ItemLink::DocketIDNum, value); }
  Id get_ToDoIDNum() override { return get(ItemLink::ToDoIDNum); }
  void put_ToDoIDNum(Id value) override { put(ItemLink::ToDoIDNum, value); }
  Id get_ScheduleIDNum() override { return get(ItemLink::ScheduleIDNum); }
  void put_ScheduleIDNum(Id value) override { put(ItemLink::ScheduleIDNum, value); }
  Id get_ScheduleTypeIDNum() override { return get(ItemLink::ScheduleTypeIDNum); }
  void put_ScheduleTypeIDNum(Id value) override { put(ItemLink::ScheduleTypeIDNum, value); }
  Id get_OperatingProcedureIDNum() override { return get(ItemLink::OperatingProcedureIDNum); }
  void put_OperatingProcedureIDNum(Id value) override {
    put(ItemLink::OperatingProcedureIDNum, value);
  }
  Id get_ProjectIDNum() override { return get(ItemLink::ProjectIDNum); }
  void put_ProjectIDNum(Id value) override { put(ItemLink::ProjectIDNum, value); }
  Id get_projectStepIDNum() override { return get(ItemLink::projectStepIDNum); }
  void put_projectStepIDNum(Id value) override { put(ItemLink::projectStepIDNum, value); }
  Id get_PersonalTaxStatusIDNum() override { return get(ItemLink::PersonalTaxStatusIDNum); }
  void put_PersonalTaxStatusIDNum(Id value) override {
    put(ItemLink::PersonalTaxStatusIDNum, value);
  }
  Id get_MissingInfoIDNum() override { return get(ItemLink::MissingInfoIDNum); }
  void put_MissingInfoIDNum(Id value) override { put(ItemLink::MissingInfoIDNum, value); }
  Id get_CommunicationLogIDNum() override { return get(ItemLink::CommunicationLogIDNum); }
  void put_CommunicationLogIDNum(Id value) override { put(ItemLink::CommunicationLogIDNum, value); }
  Id get_DocumentIDNum() override { return get(ItemLink::DocumentIDNum); }
  void put_DocumentIDNum(Id value) override { put(ItemLink::DocumentIDNum, value); }

  bool get_isSavedFlag() override { return isSaved_; }
  void put_isSavedFlag(bool value) override { isSaved_ = value; }
  bool get_IsDirty() override { return isDirty_; }
  void put_IsDirty(bool value) override { isDirty_ = value; }

  void Terminate() override {
    procedure("Morvane.exe-clsAutoNotification-Terminate", [&](Step& step) {
      if (links_) step.run([&] { links_->Terminate(); });
    });
    links_.reset();
  }

  void resetAllValues() override {
    procedure("Morvane.exe-clsAutoNotification-resetAllValues", [&](Step& step) {
      if (links_) step.run([&] { links_->resetAllValues(); });
      isSaved_ = false;
      isDirty_ = false;
    });
  }

 private:
  // After Terminate a link reads as none and cannot be set.

  Id get(ItemLink link) {
    return procedure("Morvane.exe-clsAutoNotification-getLink", noId, [&](Step& step, Id& result) {
      if (links_) step.assign(result, [&] { return links_->get_link(link); });
    });
  }

  void put(ItemLink link, Id value) {
    procedure("Morvane.exe-clsAutoNotification-putLink", [&](Step& step) {
      if (!links_) return;
      if (step.value(value, [&] { return links_->get_link(link); }) == value) return;
      step.run([&] { links_->put_link(link, value); });
      isDirty_ = true;
    });
  }

  LibraryUse use_;
  std::unique_ptr<ItemLinksClass> links_;
  bool isSaved_ = false;
  bool isDirty_ = false;
};

}  // namespace

std::unique_ptr<ComponentObject> makeAutoNotification() {
  return std::make_unique<AutoNotification>();
}

}  // namespace autonotify
