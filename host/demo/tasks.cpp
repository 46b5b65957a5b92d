#include <algorithm>

#include "host/demo/demo_notifications.h"
#include "host/demo/demo_schedule_kinds.h"
#include "host/demo/demo_world.h"
#include "platform/format.h"

namespace autonotify::host::demo {

namespace {

struct PlannedTask {
  const Client* client;
  const ScheduleKind* kind;
  std::string name;
  DateTime periodEnd;
  DateTime due;
  int channels;
};

enum class Fate { archived, closed, open };

constexpr int daysBack = 730;
constexpr int daysAhead = 365;
constexpr int daysUntilArchived = 420;

bool endsPeriod(const ScheduleKind& kind, const Client& client, DateTime monthEnd) {
  const int fiscalMonth = kind.fiscalMonth ? kind.fiscalMonth : client.fiscalMonth;
  return (static_cast<int>(monthEnd.month()) - fiscalMonth) % kind.monthsBetween == 0;
}

void planKind(DemoWorld& world, const Client& client, const ScheduleKind& kind,
              std::vector<PlannedTask>& plan) {
  const DateTime first = world.today().addDays(-daysBack);
  const DateTime last = world.today().addDays(daysAhead);
  const int channels = chooseChannels(world, client);
  const std::string name = inRegion(kind.name, world.region);
  for (int month = -36; month <= 12; ++month) {
    const DateTime end = monthEnd(world.today(), month);
    const DateTime due = dayOfMonth(end, kind.monthsToDue, kind.dueDay);
    if (due < first || due > last || !endsPeriod(kind, client, end)) continue;
    plan.push_back({&client, &kind, name, end, due, channels});
  }
}

std::vector<PlannedTask> makePlan(DemoWorld& world) {
  std::vector<PlannedTask> plan;
  for (const Client& client : world.clients)
    for (const ScheduleKind& kind : client.isCompany() ? businessKinds() : personalKinds()) {
      const bool bySize =
          kind.letter != Letter::legal && world.random.percent(kind.percentOfClients);
      const bool byTrade = kind.letter == Letter::legal && client.lawFirm;
      if (kind.monthsBetween > 0 && (bySize || byTrade)) planKind(world, client, kind, plan);
    }
  std::ranges::stable_sort(plan, {}, &PlannedTask::due);
  return plan;
}

Fate chooseFate(DemoWorld& world, DateTime due) {
  if (due < world.today().addDays(-daysUntilArchived)) return Fate::archived;
  if (due < world.today()) return world.random.percent(93) ? Fate::closed : Fate::open;
  return due < world.today().addDays(30) && world.random.percent(15) ? Fate::closed : Fate::open;
}

std::string periodText(const PlannedTask& task) {
  const char* pattern = task.kind->monthsBetween == 12 ? "yyyy" : "mmmm yyyy";
  const char* lead = task.kind->monthsBetween == 3 ? "the quarter ended " : "";
  return lead + formatDateTime(task.periodEnd, pattern);
}

Id contactOf(const Client& client) {
  return client.isCompany() ? noId : client.contactId;
}

const StaffMember& assigneeOf(const DemoWorld& world, const PlannedTask& task) {
  return world.staff[static_cast<std::size_t>(task.client->accountant)];
}

NotifiedTask notified(const DemoWorld& world, Id id, const PlannedTask& task, Fate fate) {
  const DateTime date = world.calendar.workingDayOnOrBefore(
      world.calendar.workingDaysBefore(task.due, task.kind->period));
  return {id, task.name, task.due, assigneeOf(world, task).name, fate == Fate::open, date};
}

/// What an entry and its archived copy both hold, without their keys, which have different names.
Row entryColumns(const PlannedTask& task, bool closed) {
  return {{"ClientNum", task.client->clientDataId},
          {"ContactIDNum", contactOf(*task.client)},
          {"totalNum", task.kind->totalNum},
          {"scheduleNum", task.kind->scheduleNum},
          {"scheduleName", task.name},
          {"DueDate", task.due},
          {"Closed", closed},
          {"Year", task.due.year()}};
}

void addArchived(DemoWorld& world, Id id, const PlannedTask& task) {
  Row row = entryColumns(task, true);
  row.push_back({"oldScheduleID", id});
  world.sink.insertRow("archiveSchedule", row);
  world.sink.insert("archiveTasks",
                    {{"oldTaskID", id}, {"ScheduleIDNum", id}, {"Subject", task.name}});
}

void addSchedule(DemoWorld& world, Id id, const PlannedTask& task, Fate fate, int channels) {
  const bool closed = fate == Fate::closed;
  const DateTime inHouse = world.calendar.workingDaysBefore(task.due, 5);
  const DateTime done = std::min(inHouse.addDays(world.random.between(-10, 3)), world.today());
  constexpr const char* methods[] = {"0PAP", "2PAP", "3PAP", "6WIRE", ""};
  const bool received = closed || world.random.percent(20);
  Row row = entryColumns(task, closed);
  row.insert(row.end(), {{"ScheduleID", id},
                         {"inHouseDueDate", inHouse},
                         {"InfoDeadlineDate", world.calendar.workingDaysBefore(task.due, 10)},
                         {"CalendarDate", world.calendar.workingDayOnOrBefore(task.due)},
                         {"EmployeeAssigned", assigneeOf(world, task).name},
                         {"notifyType", channels},
                         {"OverdueFlag", !closed && task.due < world.today()},
                         {"PeriodEndDate", task.periodEnd},
                         {"PeriodDescription", periodText(task)},
                         {"ReceivedAllDocs", received},
                         {"EstimatedTime", task.kind->hours},
                         {"FileLocation", "Cabinet " + std::to_string(world.random.between(1, 40))},
                         {"Custom2", std::string(world.random.pick(methods))}});
  if (received) row.push_back({"ReceivedDocsDate", done.addDays(-7)});
  if (closed)
    row.insert(row.end(), {{"PersonCompleted", assigneeOf(world, task).name},
                           {"DateCompleted", done},
                           {"NumDaysInProgress", world.random.between(1, 20)},
                           {"Amount", world.random.between(5, 400) * 10.0}});
  world.sink.insertRow("Schedule", row);
}

void addTask(DemoWorld& world, Id id, const PlannedTask& task, Fate fate) {
  const int hour = world.random.between(9, 16) * 3600;
  world.sink.insert("Tasks", {{"TaskID", id},
                              {"ScheduleIDNum", id},
                              {"UserIDNum", assigneeOf(world, task).id},
                              {"CompanyIDNum", task.client->companyId},
                              {"ContactIDNum", contactOf(*task.client)},
                              {"Subject", task.name},
                              {"DateFrom", task.due},
                              {"TimeFrom", DateTime::fromSerial(0, hour)},
                              {"TimeTo", DateTime::fromSerial(0, hour + 3600)},
                              {"TaskStatus", fate == Fate::closed ? "Completed" : "Not Started"}});
  int order = 0;
  for (const DocumentLine& line : documentLines())
    if (line.letter == task.kind->letter)
      world.sink.insert("OperatingProcedures", {{"TaskIDNum", id},
                                                {"OpProcedureScopeType", 2},
                                                {"OrderNum", ++order},
                                                {"OpProcedureType", line.type},
                                                {"OpProdedureName", std::string(line.name)}});
}

/// Rows of long ago: each entry is archived, with two notifications.
Id addPast(DemoWorld& world) {
  const ScheduleKind& kind = personalKinds().front();
  const std::string name = inRegion(kind.name, world.region);
  const DateTime first = world.today().addDays(-3650);
  const int entries = (world.options.pastNotifications + 1) / 2;
  if (world.clients.empty()) return 0;
  for (int number = 0; number < entries; ++number) {
    const auto days = static_cast<std::int64_t>(number) * (3650 - 800) / entries;
    const DateTime due = first.addDays(static_cast<std::int32_t>(days));
    const PlannedTask task{&world.random.pick(world.clients), &kind, name, due, due, 0};
    addArchived(world, number + 1, task);
    addNotifications(world, *task.client, notified(world, number + 1, task, Fate::archived),
                     nt_Email | nt_Letter);
  }
  return entries;
}

}  // namespace

void addTasks(DemoWorld& world) {
  Id id = addPast(world);
  for (const PlannedTask& task : makePlan(world)) {
    ++id;
    const Fate fate = chooseFate(world, task.due);
    const bool soon = task.due < world.today().addDays(120);
    const int channels = soon || world.random.percent(30) ? task.channels : 0;
    if (fate == Fate::archived) {
      addArchived(world, id, task);
    } else {
      addSchedule(world, id, task, fate, channels);
      addTask(world, id, task, fate);
    }
    addNotifications(world, *task.client, notified(world, id, task, fate), channels);
  }
}

}  // namespace autonotify::host::demo
