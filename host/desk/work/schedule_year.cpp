#include "host/desk/work/schedule_year.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <functional>

#include "contract/ProgressDialog.h"
#include "host/desk/rows/readable_rows.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/client_card.h"
#include "host/desk/work/composer_outlook.h"
#include "host/desk/work/task_families.h"
#include "host/desk/work/task_list.h"
#include "host/desk/work/tasks_before.h"
#include "platform/controls/ComboBox.h"
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
  bool (clsFrmSentNotifyBulk::*isChosen)();
};
constexpr ChannelFlag channelFlags[] = {
    {nt_Email, &clsFrmSentNotifyBulk::put_scheduleEmail, &clsFrmSentNotifyBulk::get_scheduleEmail},
    {nt_Fax, &clsFrmSentNotifyBulk::put_scheduleFax, &clsFrmSentNotifyBulk::get_scheduleFax},
    {nt_Letter, &clsFrmSentNotifyBulk::put_scheduleLetter,
     &clsFrmSentNotifyBulk::get_scheduleLetter},
    {nt_Phone, &clsFrmSentNotifyBulk::put_schedulePhone, &clsFrmSentNotifyBulk::get_schedulePhone},
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
Outcome<std::vector<Task>> allOf(ReadableRows<Task> tasks, std::string subject) {
  if (tasks.unreadable.empty()) return std::move(tasks.rows);
  return Refused{Refused::Why::failed, std::move(subject), tasks.unreadable.begin()->description()};
}

Outcome<std::vector<Task>> findTasks(Desk& desk, const YearWish& wish) {
  if (const auto known = requireClient(desk, wish.client); !known) return known.refused();
  ReadableRows<Task> tasks;
  readRows(desk.database(), taskTable, tasksOf(desk, wish), tasks, readTask);
  return allOf(std::move(tasks), subjectOf(wish.client));
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

/// An empty field leaves what a row has: where some are armed already, whoever they go to stays.
void fillIn(Form& form, const YearWish& wish, const TasksBefore& before) {
  Person person(form);
  person.type(*form.find("cboYear"), std::to_string(wish.year));
  for (const auto& [channel, field] : recipientFields)
    if (before.hasRows(channel)) person.type(*form.find(field), {});
  person.click(*form.find("cmdFinish"));
}

void runPass(Desk& desk, const YearWish& wish, const TasksBefore& before) {
  const auto bulk = desk.newBulkScheduler();
  auto [type, id] = wish.client;
  bulk->Initialize(type, isContact(wish) ? noId : id, isContact(wish) ? id : noId);
  for (const TaskFamily& family : taskFamilies)
    ((*bulk).*family.choose)(has(wish.families, family.totalNum));
  for (const ChannelFlag& flag : channelFlags)
    ((*bulk).*flag.choose)(has(wish.channels, flag.channel));
  const NextWindow act(*desk.printer(), [&](Form& form) { fillIn(form, wish, before); });
  bool skipsFamilies = true;
  bulk->showForm(skipsFamilies);
}

ChannelFate fateOf(bool wasThere, const std::optional<Notification>& row) {
  if (!row) return ChannelFate::nothingAdded;
  if (!wasThere) return ChannelFate::armed;
  const bool waits = stateOf(*row) == NotificationState::pending;
  return waits ? ChannelFate::alreadyArmed : ChannelFate::settled;
}

std::vector<YearTask> outcomesOf(Desk& desk, const YearWish& wish, std::vector<Task> tasks,
                                 const TasksBefore& before) {
  std::vector<YearTask> outcomes;
  for (Task& task : tasks) {
    YearTask& outcome = outcomes.emplace_back(YearTask{std::move(task), {}, {}});
    for (const notifyType channel : wish.channels) {
      const Id id = desk.control().cls_getNotificationID(outcome.task.id, channel);
      auto row = findNotification(desk, id);
      const ChannelFate fate = fateOf(before.hasRow(outcome.task.id, channel), row);
      outcome.channels.push_back({channel, fate, id, std::move(row)});
    }
  }
  return outcomes;
}

/// All open ones of the task's client: a person may choose any of them.
Outcome<std::vector<Task>> tasksBeside(Desk& desk, const Task& task) {
  TaskQuery query;
  if (task.clientNum < 0) query.contact = task.contactId;
  if (task.clientNum >= 0) query.client = task.clientNum;
  return allOf(readTasks(desk, query), subjectOf(WorkItem::task, task.id));
}

void showYear(Desk& desk, clsFrmSentNotifyBulk& bulk, const Task& task) {
  const bool isContact = task.clientNum < 0;
  auto type = isContact ? enumAutoNotifyContact : enumAutoNotifyCompany;
  bulk.Initialize(type, companyOf(desk, task), task.contactId);
  // A contact is not asked for the kinds.
  for (const TaskFamily& family : taskFamilies) (bulk.*family.choose)(isContact);
  bool skipsFamilies = false;
  bulk.showForm(skipsFamilies);
}

YearWish wishIn(const Form& window, clsFrmSentNotifyBulk& bulk, const Client& client) {
  YearWish wish{client, 0, {}, {}};
  if (const auto* years = dynamic_cast<const ComboBox*>(window.find("cboYear"))) {
    const std::string year = years->text();
    std::from_chars(year.data(), year.data() + year.size(), wish.year);
  }
  for (const TaskFamily& family : taskFamilies)
    if ((bulk.*family.isChosen)()) wish.families.push_back(family.totalNum);
  for (const ChannelFlag& flag : channelFlags)
    if ((bulk.*flag.isChosen)()) wish.channels.push_back(flag.channel);
  return wish;
}

/// While it lives, `begin` runs whenever the component is about to show how far a work has come.
class WorkWatch {
 public:
  WorkWatch(ClassRegistry& classes, std::function<void()> begin) : classes_(classes) {
    former_ = classes.registerClass(ProgressDialog::className, [this, begin = std::move(begin)] {
      begin();
      return former_();
    });
  }
  ~WorkWatch() { classes_.registerClass(ProgressDialog::className, std::move(former_)); }
  WorkWatch(const WorkWatch&) = delete;
  WorkWatch& operator=(const WorkWatch&) = delete;

 private:
  ClassRegistry& classes_;
  ClassRegistry::Factory former_;
};

}  // namespace

bool isPast(Desk& desk, const YearTask& task, const ChannelOutcome& outcome) {
  if (outcome.row) return isOverdue(desk, *outcome.row);
  return outcome.fate == ChannelFate::armed && task.date < desk.today();
}

YearOutcome previewYear(Desk& desk, const YearWish& wish) {
  if (wish.families.empty()) return std::vector<YearTask>();
  auto tasks = findTasks(desk, wish);
  if (!tasks) return tasks.refused();
  return askComponent(desk, subjectOf(wish.client), [&] {
    const TasksBefore before(desk, *tasks, wish.channels);
    std::vector<YearTask> preview = outcomesOf(desk, wish, *tasks, before);
    for (YearTask& task : preview) {
      for (ChannelOutcome& channel : task.channels) {
        if (channel.row) continue;
        channel.fate = ChannelFate::armed;
        if (task.date.isZero())
          task.date = desk.tools().explainNotificationDate(task.task.id).result;
      }
    }
    return preview;
  });
}

YearOutcome scheduleYear(Desk& desk, const YearWish& wish) {
  auto tasks = findTasks(desk, wish);
  if (!tasks) return tasks.refused();
  const auto claims = claimAll(desk, *tasks);
  if (!claims) return claims.refused();
  const std::string subject = subjectOf(wish.client);
  TasksBefore before(desk, *tasks, wish.channels);
  if (auto refused = tellComponent(desk, subject, [&] { before.restoreMarks(); }))
    return *std::move(refused);
  if (auto refused = tellComponent(desk, subject, [&] { runPass(desk, wish, before); })) {
    before.takeBack();
    return *std::move(refused);
  }
  return outcomesOf(desk, wish, *std::move(tasks), before);
}

Outcome<Composed> chooseYear(Desk& desk, Id id, const std::function<void(AskYear)>& offer) {
  const auto task = requireTask(desk, id);
  if (!task) return task.refused();
  const auto tasks = tasksBeside(desk, *task);
  if (!tasks) return tasks.refused();
  const auto claims = claimAll(desk, *tasks);
  if (!claims) return claims.refused();
  const std::string subject = subjectOf(WorkItem::task, id);
  const auto bulk = desk.newBulkScheduler();
  std::optional<TasksBefore> before;
  std::optional<KeptRecipients> kept;
  const WorkWatch watch(desk.classes(), [&] {
    // Its editor of templates shows works of its own.
    if (desk.openForms().back()->name() != yearForm) return;
    desk.errorsOf([] {});  // what filling the window met is not of the pass
    before.emplace(desk, *tasks, allNotifyTypes);
    before->restoreMarks();
    kept.emplace(desk, *before);
  });
  offer([&](const Form& window) {
    return previewYear(desk, wishIn(window, *bulk, clientOf(desk, *task)));
  });
  auto refused = tellComponent(desk, subject, [&] { showYear(desk, *bulk, *task); });
  if (before && refused) before->takeBack();
  const bool isChosen = before && !bulk->get_cancelFlag();
  if (!refused && isChosen)
    refused = tellComponent(desk, subject, [&] { bulk->saveNotificationsTypes(); });
  if (refused) return *std::move(refused);
  return isChosen ? Composed::done : Composed::cancelled;
}

}  // namespace autonotify::host
