#include "commands/arming.h"

#include <fmt/format.h>

#include "commands/arguments.h"
#include "commands/armable.h"
#include "notifications.h"

namespace autonotify::console {
namespace {

struct AddOperation {
  notifyType channel;
  Id (clsAutoNotifyCtrl::*add)(Id);
};
constexpr AddOperation addOperations[] = {
    {nt_Email, &clsAutoNotifyCtrl::cls_addNewEmailNotificationFromScheduleIDNum},
    {nt_Fax, &clsAutoNotifyCtrl::cls_addNewFaxNotificationFromScheduleIDNum},
    {nt_Letter, &clsAutoNotifyCtrl::cls_addNewLetterNotificationFromScheduleIDNum},
    {nt_Phone, &clsAutoNotifyCtrl::cls_addNewPhoneNotificationFromScheduleIDNum},
};

class ArmableTask : public Armable {
 public:
  ArmableTask(Session& opened, Id id) : Armable(opened), id_(id) {}
  std::string words() const override { return fmt::format("task {}", id_); }
  Json identity() const override { return {{"task", id_}}; }
  host::WorkItem claim() const override { return host::WorkItem::task; }
  Id claimId() const override { return id_; }
  int channels() override { return loadTask(session, id_).channels; }
  Id findRow(notifyType channel) override {
    return session.control().cls_getNotificationID(id_, channel);
  }
  Id addRow(notifyType channel) override {
    const AddOperation* operation = findChannel(addOperations, channel);
    return operation ? (session.control().*operation->add)(id_) : noId;
  }
  bool mark(notifyType channel, changeStatus change) override {
    return session.control().cls_changeNotificationStatus(channel, change, id_);
  }

 private:
  Id id_;
};

}  // namespace

void describeArm(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
  addChannels(command, arguments);
}

Reply runArm(Session& session, const Arguments& arguments) {
  ArmableTask task(session, arguments.task);
  return armChannels(session, task, arguments);
}

void describeDisarm(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
  addChannels(command, arguments);
  addForce(command, arguments);
}

Reply runDisarm(Session& session, const Arguments& arguments) {
  ArmableTask task(session, arguments.task);
  return disarmChannels(session, task, arguments);
}

}  // namespace autonotify::console
