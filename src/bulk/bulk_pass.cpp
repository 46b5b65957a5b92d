#include "bulk/bulk_pass.h"

#include <string>

#include "contract/rows.h"
#include "contract/tags.h"
#include "contract/windows.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"frmSendNotificationsBulk", name>;

using enum TaskFamily;
constexpr std::array<TaskFamily, taskFamilyCount> passOrder{
    GST, PST, PayrollRemitt, EmployeePayroll, YearEnd,  CorpTax,     WSIB,
    EHT, Law, Other,         Custom,          Projects, Bookkeeping, FederalPayroll};

/// The bits of the channels are those of allNotifyTypes.
struct PassChannel {
  notifyType channel;
  Id (*add)(Id scheduleID);
  void (*edit)(Id notificationID, const BulkOrder& order);
};
constexpr std::array<PassChannel, 4> passChannels{{
    {nt_Email, addNewEmailNotificationFromScheduleIDNum,
     [](Id row, const BulkOrder& order) { editEmailNotification(row, order.email); }},
    {nt_Fax, addNewFaxNotificationFromScheduleIDNum,
     [](Id row, const BulkOrder& order) { editFaxNotification(row, order.fax); }},
    {nt_Letter, addNewLetterNotificationFromScheduleIDNum, [](Id, const BulkOrder&) {}},
    {nt_Phone, addNewPhoneNotificationFromScheduleIDNum,
     [](Id row, const BulkOrder& order) { editPhoneNotification(row, order.phone); }},
}};

/// The client as `Schedule` has it, with the column; without a number it has no tasks.
struct TaskOwner {
  const char* column;
  Id number;
};
TaskOwner ownerOf(Step& step, const BulkClient& client) {
  if (!client.isCompany()) return {"ContactIDNum", client.id()};
  const auto number = [&] { return clients().getClientDataIDFromCompanyID(client.companyID); };
  return {"ClientNum", step.value(noId, number)};
}

std::string openTasks(const TaskOwner& owner, std::int16_t year, TaskFamily family) {
  return std::string("SELECT Schedule.* FROM Schedule WHERE Schedule.") + owner.column + " = " +
         std::to_string(owner.number) + " AND Schedule.Year = " + std::to_string(year) +
         " AND totalNum = " + std::to_string(totalNumOf(family)) + " AND Closed=False;";
}

/// Visits the open tasks of each kind that was chosen.
template <class Visit>
void forEachFamily(Step& step, const BulkOrder& order, Visit visit) {
  if (!isDatabaseOpen(step)) return;
  const TaskOwner owner = ownerOf(step, order.client);
  if (owner.number < 0) return;
  for (const TaskFamily family : passOrder) {
    if (!order.choice[family]) continue;
    Rows tasks(step, openTasks(owner, order.year, family), keysetRead);
    visit(tasks);
  }
}

void scheduleTask(const BulkOrder& order, Id scheduleID) {
  for (std::size_t i = 0; i < passChannels.size(); ++i) {
    if (!order.choice.channels[i]) continue;
    const PassChannel& pass = passChannels[i];
    const bool isArmed = getNotificationStatus(scheduleID, pass.channel);
    const Id row = isArmed ? getNotificationID(scheduleID, pass.channel) : pass.add(scheduleID);
    pass.edit(row, order);
    changeNotificationStatus(pass.channel, nt_AddStatus, scheduleID);
  }
}

}  // namespace

int countAutoNotificationss(const BulkOrder& order) {
  return procedure(tagOf<"countAutoNotificationss">, 0, [&](Step& step, int& count) {
    forEachFamily(step, order, [&](const Rows& tasks) {
      count += step.value(0, [&] { return database().getRecordCount(tasks.handle()); });
    });
  });
}

void scheduleAutoNotifications(const BulkOrder& order, ProgressDialog& dialog) {
  procedure(tagOf<"scheduleAutoNotifications">, [&](Step& step) {
    forEachFamily(step, order, [&](Rows& tasks) {
      for (const Row& task : tasks) {
        const Id scheduleID = task.id("ScheduleID");
        if (scheduleID >= 0) scheduleTask(order, scheduleID);
        step.run([&] { dialog.put_value(dialog.get_value() + 1); });
        yieldToHost(step, 2);
      }
    });
  });
}

}  // namespace autonotify
