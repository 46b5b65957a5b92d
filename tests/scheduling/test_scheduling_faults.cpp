#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "settings/modUserSettings.h"
#include "support/fault_walk.h"
#include "support/table_rows.h"

namespace autonotify::test {
namespace {

constexpr DateTime dueDate = DateTime::of(2026, 11, 23);
constexpr Id user = 7;

/// One schedule entry with two notifications, due after a holiday.
Id fillOffice(Rows rows) {
  rows.addHoliday(DateTime::of(2026, 11, 20), "");
  rows.addKind(103, 1, 2, "{\\rtf1 \\'abCompany Name\\'bb}");
  const TestClient client = rows.addClient("Acme Ltd.", "Jane Smith");
  const Id entry = rows.addSchedule(103, 1, dueDate, {{"ClientNum", client.clientNum}});
  rows.addTask(entry, "GST Return");
  rows.addNotification(entry, 8, DateTime::of(2026, 1, 5));
  rows.addNotification(entry, 2, DateTime::of(2026, 1, 6));
  return entry;
}

struct Operation {
  const char* name;
  std::function<std::string(TestHost&, Id entry)> run;
  std::string defaultResult;
};

Id saveKind(TestHost& host, Id id) {
  clsAutoNotifyTemplate kind;
  kind.put_scheduleTypeID(id);
  kind.put_totalNum(105);
  const Id saved = kind.saveScheduleTypeInfo();
  EXPECT_LE(host.dump("SELECT 1 FROM ScheduleTypes WHERE TotalNum=105"), "1|\n");
  return saved;
}

std::string propagate(bool (clsAutoNotifyTemplate::*reset)()) {
  clsAutoNotifyTemplate kind;
  kind.openWithTotalNumAndScheduleNum(103, 1, true);
  return (kind.*reset)() ? "done" : "failed";
}

const Operation operations[] = {
    {"period", [](TestHost&, Id) { return std::to_string(getNotificationPeriod(103, 0, false)); },
     "-15"},
    {"date", [](TestHost&, Id entry) { return dateTimeText(determineNotificationDate(entry)); },
     dateTimeText(DateTime{})},
    {"sibling",
     [](TestHost&, Id entry) { return dateTimeText(getLastUsedNotificationDate(entry, dueDate)); },
     dateTimeText(dueDate)},
    {"friday",
     [](TestHost&, Id) {
       return dateTimeText(adjustDateToFridayIfWeekendOrHoliday(DateTime::of(2026, 11, 22)));
     },
     dateTimeText(DateTime{})},
    {"refresh",
     [](TestHost&, Id entry) {
       refreshNotificationDate(entry);
       return std::string{};
     },
     ""},
    {"saveNew", [](TestHost& host, Id) { return std::to_string(saveKind(host, noId)); }, "-1"},
    {"saveGone", [](TestHost& host, Id) { return std::to_string(saveKind(host, 4711)); }, "4711"},
    {"getSetting", [](TestHost&, Id) { return std::to_string(getShowEmailPreview(user)); }, "1"},
    {"putSetting",
     [](TestHost&, Id) {
       putShowMVPreview(true, user);
       return std::string{};
     },
     ""},
    {"comment", [](TestHost&, Id entry) { return generateClientAutoNotifyComment(entry); }, ""},
    {"propagate",
     [](TestHost&, Id) { return propagate(&clsAutoNotifyTemplate::resetNotificationComments); },
     "done"},
};

void PrintTo(const Operation& operation, std::ostream* out) {
  *out << operation.name;
}

class SchedulingFaults : public testing::TestWithParam<Operation> {};

TEST_P(SchedulingFaults, LeaveNothingHalfDone) {
  Id entry = noId;
  FaultWalk walk;
  walk.prepare = [&](TestHost& host) { entry = fillOffice(Rows(*host.plainDatabase)); };
  walk.run = [&](TestHost& host) { return GetParam().run(host, entry); };
  walk.defaultResult = GetParam().defaultResult;
  const FaultWalkReport report = walkFaults(walk);
  EXPECT_GT(report.hostCalls, 4);
}

INSTANTIATE_TEST_SUITE_P(Operations, SchedulingFaults, testing::ValuesIn(operations),
                         [](const auto& operation) { return std::string(operation.param.name); });

}  // namespace
}  // namespace autonotify::test
