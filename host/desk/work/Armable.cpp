#include "host/desk/work/Armable.h"

#include "host/desk/rows/channel_names.h"
#include "host/desk/work/claiming.h"

namespace autonotify::host {
namespace {

struct AddToTask {
  notifyType channel;
  Id (clsAutoNotifyCtrl::*add)(Id);
};
constexpr AddToTask addToTask[] = {
    {nt_Email, &clsAutoNotifyCtrl::cls_addNewEmailNotificationFromScheduleIDNum},
    {nt_Fax, &clsAutoNotifyCtrl::cls_addNewFaxNotificationFromScheduleIDNum},
    {nt_Letter, &clsAutoNotifyCtrl::cls_addNewLetterNotificationFromScheduleIDNum},
    {nt_Phone, &clsAutoNotifyCtrl::cls_addNewPhoneNotificationFromScheduleIDNum},
};

class ArmableTask : public Armable {
 public:
  ArmableTask(Desk& desk, Id id) : desk_(desk), id_(id) {}
  std::string subject() const override { return subjectOf(WorkItem::task, id_); }
  WorkItem claimedAs() const override { return WorkItem::task; }
  Id claimedId() const override { return id_; }
  std::optional<int> channels() override {
    const auto task = findTask(desk_, id_);
    return task ? std::optional(task->channels) : std::nullopt;
  }
  Id findRow(notifyType channel) override {
    return desk_.control().cls_getNotificationID(id_, channel);
  }
  Id addRow(notifyType channel) override {
    const AddToTask* operation = findChannel(addToTask, channel);
    return operation ? (desk_.control().*operation->add)(id_) : noId;
  }
  bool mark(notifyType channel, changeStatus change) override {
    return desk_.control().cls_changeNotificationStatus(channel, change, id_);
  }

 private:
  Desk& desk_;
  Id id_;
};

struct AddToItem {
  notifyType channel;
  Id (clsAutoNotifyCtrl::*add)(CurrentDayTimerType, Id, DateTime, Id, Id, Id);
};
constexpr AddToItem addToItem[] = {
    {nt_Email, &clsAutoNotifyCtrl::cls_addNewApptEmailNotification},
    {nt_Fax, &clsAutoNotifyCtrl::cls_addNewApptFaxNotification},
    {nt_Letter, &clsAutoNotifyCtrl::cls_addNewApptLetterNotification},
    {nt_Phone, &clsAutoNotifyCtrl::cls_addNewApptPhoneNotification},
};

/// For a client that a time entry lacks the component would look among the appointments. No company
/// and no contact has this number.
constexpr Id nobody = 0;

class ArmableItem : public Armable {
 public:
  ArmableItem(Desk& desk, const DiaryItem& item, DateTime date)
      : desk_(desk), item_(item), date_(date) {}
  std::string subject() const override { return subjectOf(item_); }
  WorkItem claimedAs() const override { return diaryKind(item_.kind).claim; }
  Id claimedId() const override { return item_.kind == Tasks ? item_.scheduleId : item_.id; }
  std::optional<int> channels() override {
    const auto item = findDiaryItem(desk_, item_.kind, item_.id);
    return item ? std::optional(item->channels) : std::nullopt;
  }
  Id findRow(notifyType channel) override {
    return desk_.control().cls_getApptNotificationID(item_.kind, item_.id, channel);
  }
  Id addRow(notifyType channel) override {
    const AddToItem* operation = findChannel(addToItem, channel);
    if (!operation) return noId;
    return (desk_.control().*operation->add)(item_.kind, item_.id, date_, noId,
                                             given(item_.companyId), given(item_.contactId));
  }
  bool mark(notifyType channel, changeStatus change) override {
    return desk_.control().cls_changeApptNotificationStatus(item_.kind, channel, change, item_.id);
  }

 private:
  Id given(Id client) const { return item_.kind == Dockets && client < 0 ? nobody : client; }

  Desk& desk_;
  DiaryItem item_;
  DateTime date_;
};

}  // namespace

std::unique_ptr<Armable> armableTask(Desk& desk, Id id) {
  return std::make_unique<ArmableTask>(desk, id);
}

std::unique_ptr<Armable> armableItem(Desk& desk, const DiaryItem& item, DateTime date) {
  return std::make_unique<ArmableItem>(desk, item, date);
}

}  // namespace autonotify::host
