#include "host/desk/work/schedule_year.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "host/clients/record_rows.h"
#include "host/desk/rows/readable_rows.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/task_families.h"
#include "host/desk/work/task_list.h"
#include "platform/controls/Person.h"

namespace autonotify::host {
namespace {

struct RecipientField {
  notifyType channel;
  const char* control;
};
constexpr RecipientField recipientFields[] = {
    {nt_Email, "cboTo"},        {nt_Fax, "cboFaxRecipient"},  {nt_Fax, "cboToFaxNumber"},
    {nt_Phone, "cboPhoneName"}, {nt_Phone, "cboPhoneNumber"},
};

struct ChannelFlag {
  notifyType channel;
  void (clsFrmSentNotifyBulk::*choose)(bool);
};
constexpr ChannelFlag channelFlags[] = {
    {nt_Email, &clsFrmSentNotifyBulk::put_scheduleEmail},
    {nt_Fax, &clsFrmSentNotifyBulk::put_scheduleFax},
    {nt_Letter, &clsFrmSentNotifyBulk::put_scheduleLetter},
    {nt_Phone, &clsFrmSentNotifyBulk::put_schedulePhone},
};

template <class Chosen>
bool has(const std::vector<Chosen>& all, Chosen one) {
  return std::ranges::find(all, one) != all.end();
}

bool isContact(const YearWish& wish) {
  return wish.client.type == enumAutoNotifyContact;
}

std::string tasksOf(Desk& desk, const YearWish& wish) {
  const Id id = wish.client.id;
  const Id number = isContact(wish) ? id : desk.clients().getClientDataIDFromCompanyID(id);
  return fmt::format(
      "SELECT {} FROM Schedule WHERE Schedule.{}={} AND Schedule.Year={} AND Schedule.totalNum IN "
      "({}) AND Schedule.Closed=False ORDER BY Schedule.DueDate, Schedule.ScheduleID;",
      taskColumns, isContact(wish) ? "ContactIDNum" : "ClientNum", number, wish.year,
      fmt::join(wish.families, ","));
}

/// A task that cannot be read would be armed unseen: then nothing is.
Outcome<std::vector<Task>> findTasks(Desk& desk, const YearWish& wish) {
  if (const auto known = requireClient(desk, wish.client); !known) return known.refused();
  ReadableRows<Task> tasks;
  readRows(desk.database(), taskTable, tasksOf(desk, wish), tasks, readTask);
  if (!tasks.unreadable.empty())
    return Refused{Refused::Why::failed, subjectOf(wish.client),
                   tasks.unreadable.begin()->description()};
  return std::move(tasks.rows);
}

Outcome<std::vector<std::unique_ptr<Claim>>> claimAll(Desk& desk, const std::vector<Task>& tasks) {
  std::vector<std::unique_ptr<Claim>> claims;
  for (const Task& task : tasks) {
    auto claim = claimItem(desk, WorkItem::task, task.id);
    if (!claim) return claim.refused();
    claims.push_back(*std::move(claim));
  }
  return claims;
}

/// A channel of a task, and the row that it had before the pass.
struct ChannelBefore {
  Id task;
  notifyType channel;
  Id row;
};

std::vector<ChannelBefore> rowsBefore(Desk& desk, const std::vector<Task>& tasks,
                                      std::span<const notifyType> channels) {
  std::vector<ChannelBefore> found;
  for (const Task& task : tasks) {
    for (const notifyType channel : channels)
      found.push_back({task.id, channel, desk.control().cls_getNotificationID(task.id, channel)});
  }
  return found;
}

void restoreMarks(Desk& desk, const std::vector<ChannelBefore>& before) {
  for (const auto& [task, channel, row] : before)
    if (row >= 0) desk.control().cls_changeNotificationStatus(channel, nt_AddStatus, task);
}

/// An empty field leaves what a row has: where some are armed already, whoever they go to stays.
void fillIn(Form& form, const YearWish& wish, const std::vector<ChannelBefore>& before) {
  Person person(form);
  person.type(*form.find("cboYear"), std::to_string(wish.year));
  std::set<notifyType> kept;
  for (const ChannelBefore& each : before)
    if (each.row >= 0) kept.insert(each.channel);
  for (const auto& [channel, field] : recipientFields)
    if (kept.contains(channel)) person.type(*form.find(field), {});
  person.click(*form.find("cmdFinish"));
}

void runPass(Desk& desk, const YearWish& wish, const std::vector<ChannelBefore>& before) {
  const auto bulk = desk.newBulkScheduler();
  auto [type, id] = wish.client;
  bulk->Initialize(type, isContact(wish) ? noId : id, isContact(wish) ? id : noId);
  for (const TaskFamily& family : taskFamilies)
    ((*bulk).*family.choose)(has(wish.families, family.totalNum));
  for (const ChannelFlag& flag : channelFlags)
    ((*bulk).*flag.choose)(has(wish.channels, flag.channel));
  desk.printer()->actInNextWindow([&](Form& form) { fillIn(form, wish, before); });
  bool skipsFamilies = true;
  bulk->showForm(skipsFamilies);
}

/// All notifications of the tasks, those that a task does not know of too.
std::set<Id> notificationsOf(Desk& desk, const std::vector<Task>& tasks) {
  std::set<Id> found;
  for (const Task& task : tasks) {
    const std::string sql = fmt::format(
        "SELECT ClientNotification.ClientNotificationID FROM ClientNotification WHERE "
        "ClientNotification.ScheduleIDNum={};",
        task.id);
    forEachRow(desk.database(), sql,
               [&](const Row& row) { found.insert(row.id("ClientNotificationID")); });
  }
  return found;
}

/// What was not there before goes, also where the task had a row that the pass did not find.
void takeBack(Desk& desk, const std::vector<Task>& tasks, const std::set<Id>& rows,
              const std::vector<ChannelBefore>& before) {
  for (const Id row : notificationsOf(desk, tasks))
    if (!rows.contains(row)) desk.control().cls_deleteNotification(row);
  for (const auto& [task, channel, row] : before)
    if (row < 0) desk.control().cls_changeNotificationStatus(channel, nt_RemoveStatus, task);
}

ChannelFate fateOf(const ChannelBefore& before, const std::optional<Notification>& row) {
  if (!row) return ChannelFate::nothingAdded;
  if (before.row < 0) return ChannelFate::armed;
  const bool waits = stateOf(*row) == NotificationState::pending;
  return waits ? ChannelFate::alreadyArmed : ChannelFate::settled;
}

/// `before` holds the channels of each task, in their order.
std::vector<YearTask> outcomesOf(Desk& desk, std::vector<Task> tasks,
                                 const std::vector<ChannelBefore>& before) {
  std::vector<YearTask> outcomes;
  auto next = before.begin();
  for (Task& task : tasks) {
    YearTask& outcome = outcomes.emplace_back(YearTask{std::move(task), {}, {}});
    for (; next != before.end() && next->task == outcome.task.id; ++next) {
      const Id id = desk.control().cls_getNotificationID(next->task, next->channel);
      auto row = findNotification(desk, id);
      outcome.channels.push_back({next->channel, fateOf(*next, row), id, std::move(row)});
    }
  }
  return outcomes;
}

}  // namespace

YearOutcome previewYear(Desk& desk, const YearWish& wish) {
  auto tasks = findTasks(desk, wish);
  if (!tasks) return tasks.refused();
  return askComponent(desk, subjectOf(wish.client), [&] {
    const auto before = rowsBefore(desk, *tasks, wish.channels);
    std::vector<YearTask> preview = outcomesOf(desk, *tasks, before);
    for (YearTask& task : preview) {
      task.date = desk.tools().explainNotificationDate(task.task.id).result;
      for (ChannelOutcome& channel : task.channels)
        if (!channel.row) channel.fate = ChannelFate::armed;
    }
    return preview;
  });
}

YearOutcome scheduleYear(Desk& desk, const YearWish& wish) {
  auto tasks = findTasks(desk, wish);
  if (!tasks) return tasks.refused();
  const auto claims = claimAll(desk, *tasks);
  if (!claims) return claims.refused();
  std::vector<ChannelBefore> before;
  const auto prepare = [&] {
    before = rowsBefore(desk, *tasks, wish.channels);
    restoreMarks(desk, before);
  };
  const std::string subject = subjectOf(wish.client);
  if (auto refused = tellComponent(desk, subject, prepare)) return *std::move(refused);
  const std::set<Id> rows = notificationsOf(desk, *tasks);
  if (auto refused = tellComponent(desk, subject, [&] { runPass(desk, wish, before); })) {
    takeBack(desk, *tasks, rows, before);
    return *std::move(refused);
  }
  return outcomesOf(desk, *tasks, before);
}

Outcome<Composed> chooseYear(Desk& desk, Id id) {
  const auto task = requireTask(desk, id);
  if (!task) return task.refused();
  const bool isContact = task->clientNum < 0;
  TaskQuery query;
  if (isContact) query.contact = task->contactId;
  if (!isContact) query.client = task->clientNum;
  const std::vector<Task> tasks = readTasks(desk, query).rows;
  const auto claims = claimAll(desk, tasks);
  if (!claims) return claims.refused();
  return askComponent(desk, subjectOf(WorkItem::task, id), [&] {
    restoreMarks(desk, rowsBefore(desk, tasks, allNotifyTypes));
    const auto bulk = desk.newBulkScheduler();
    auto type = isContact ? enumAutoNotifyContact : enumAutoNotifyCompany;
    bulk->Initialize(type, companyOf(desk, *task), task->contactId);
    // A contact is not asked for the kinds.
    for (const TaskFamily& family : taskFamilies) ((*bulk).*family.choose)(isContact);
    bool skipsFamilies = false;
    bulk->showForm(skipsFamilies);
    if (bulk->get_cancelFlag()) return Composed::cancelled;
    bulk->saveNotificationsTypes();
    return Composed::done;
  });
}

}  // namespace autonotify::host
