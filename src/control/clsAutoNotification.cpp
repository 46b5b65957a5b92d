#include "control/clsAutoNotification.h"

#include "contract/procedure.h"
#include "contract/tags.h"
#include "control/component_objects.h"
#include "store/modItemLinks.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotification", name>;

class AutoNotification final : public clsAutoNotification {
 public:
  AutoNotification() : links_(ItemLinksClassInit()) { resetAllValues(); }
  ~AutoNotification() override {
    endQuietly([this] { Terminate(); });
  }

  ItemLinksClass* get_ItemLinksClass() override { return links_.get(); }

  bool get_isSavedFlag() override { return isSaved_; }
  void put_isSavedFlag(bool value) override { isSaved_ = value; }
  bool get_IsDirty() override { return isDirty_; }
  void put_IsDirty(bool value) override { isDirty_ = value; }

  void Terminate() override {
    procedure(tagOf<"Terminate">, [&](Step& step) {
      if (links_) step.run(&ItemLinksClass::Terminate, *links_);
      links_.reset();
    });
  }

  void resetAllValues() override {
    procedure(tagOf<"resetAllValues">, [&](Step& step) {
      if (links_) step.run(&ItemLinksClass::resetAllValues, *links_);
      isSaved_ = false;
      isDirty_ = false;
    });
  }

#define LINK(name)                     \
  Id get_##name() override {           \
    return get(ItemLink::name);        \
  }                                    \
  void put_##name(Id value) override { \
    put(ItemLink::name, value);        \
  }
  LINK(ApptIDNum)
  LINK(TaskIDNum)
  LINK(DocketIDNum)
  LINK(ToDoIDNum)
  LINK(ScheduleIDNum)
  LINK(ScheduleTypeIDNum)
  LINK(OperatingProcedureIDNum)
  LINK(ProjectIDNum)
  LINK(projectStepIDNum)
  LINK(PersonalTaxStatusIDNum)
  LINK(MissingInfoIDNum)
  LINK(CommunicationLogIDNum)
  LINK(DocumentIDNum)
#undef LINK

 private:
  // After Terminate a link reads as none and cannot be set.

  Id get(ItemLink link) {
    return procedure(tagOf<"getLink">, noId, [&](Step& step, Id& result) {
      if (links_) step.assign(result, &ItemLinksClass::get_link, *links_, link);
    });
  }

  void put(ItemLink link, Id value) {
    procedure(tagOf<"putLink">, [&](Step& step) {
      if (!links_) return;
      if (step.value(value, &ItemLinksClass::get_link, *links_, link) == value) return;
      step.run(&ItemLinksClass::put_link, *links_, link, value);
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
