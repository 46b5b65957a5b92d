#include <gtest/gtest.h>

#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "scheduling/rows.h"
#include "settings/modUserSettings.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

constexpr DateTime dueDate = DateTime::of(2026, 11, 23);
constexpr Id user = 7;

/// One schedule entry with two notifications, due after a holiday.
struct Office {
  Office() {
    addHoliday(DateTime::of(2026, 11, 20), "");
    addKind(103, 1, 2, "{\\rtf1 \\'abCompany Name\\'bb}");
    const TestClient client = addClient("Acme Ltd.", "Jane Smith");
    entry = addSchedule(103, 1, dueDate, {{"ClientNum", std::to_string(client.clientNum)}});
    addTask(entry, "GST Return");
    addNotification(entry, 8, DateTime::of(2026, 1, 5));
    addNotification(entry, 2, DateTime::of(2026, 1, 6));
  }
  Id entry = noId;
};

struct Operation {
  const char* name;
  std::function<std::string(TestHost&, Id entry)> run;
  std::string defaultResult;
};

std::string savedTemplates(TestHost& host, Id id) {
  EXPECT_LE(host.dump("SELECT 1 FROM ScheduleTypes WHERE TotalNum=105"), "1|\n");
  return std::to_string(id);
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
    {"save",
     [](TestHost& host, Id) {
       clsAutoNotifyTemplate kind;
       kind.put_totalNum(105);
       return savedTemplates(host, kind.saveScheduleTypeInfo());
     },
     "-1"},
    {"save gone",
     [](TestHost& host, Id) {
       clsAutoNotifyTemplate kind;
       kind.put_scheduleTypeID(4711);
       kind.put_totalNum(105);
       return savedTemplates(host, kind.saveScheduleTypeInfo());
     },
     "4711"},
    {"get setting", [](TestHost&, Id) { return std::to_string(getShowEmailPreview(user)); }, "1"},
    {"put setting",
     [](TestHost&, Id) {
       putShowMVPreview(true, user);
       return std::string{};
     },
     ""},
    {"comment", [](TestHost&, Id entry) { return generateClientAutoNotifyComment(entry); }, ""},
};

class SchedulingFaults : public testing::TestWithParam<Operation> {};

TEST_P(SchedulingFaults, LeaveNothingHalfDone) {
  Id entry = noId;
  FaultWalk walk;
  walk.prepare = [&](TestHost&) { entry = Office{}.entry; };
  walk.run = [&](TestHost& host) { return GetParam().run(host, entry); };
  walk.defaultResult = GetParam().defaultResult;
  const FaultWalkReport report = walkFaults(walk);
  EXPECT_GT(report.hostCalls, 4);
}

INSTANTIATE_TEST_SUITE_P(Operations, SchedulingFaults, testing::ValuesIn(operations),
                         [](const auto& operation) {
                           std::string name = operation.param.name;
                           std::replace(name.begin(), name.end(), ' ', '_');
                           return name;
                         });

}  // namespace
}  // namespace autonotify::test
