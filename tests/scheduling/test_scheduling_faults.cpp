#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "scheduling/schedule_kinds.h"
#include "settings/modUserSettings.h"
#include "support/fault_walk.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

constexpr DateTime dueDate = DateTime::of(2026, 11, 23);
constexpr DateTime sunday = DateTime::of(2026, 11, 22);
constexpr Id entry = 1, storedKind = 1, newUser = 7, knownUser = 8;
const std::string noDate = dateTimeText(DateTime{});

/// One schedule entry with two notifications, due after a holiday.
void fillOffice(TableRows rows) {
  addAllTold(rows, "scheduling_office.txt", "office");
}

/// Whatever fails, a row is added once, and where there is none.
WalkedOperation saves(const char* name, Id id) {
  const auto run = [id](TestHost& host) {
    clsAutoNotifyTemplate kind;
    kind.put_scheduleTypeID(id);
    kind.put_totalNum(105);
    const Id saved = kind.saveScheduleTypeInfo();
    EXPECT_LE(host.dump("SELECT 1 FROM ScheduleTypes"), id == storedKind ? "1|\n" : "1|\n1|\n");
    return std::to_string(saved);
  };
  return {name, run, std::to_string(id)};
}

WalkedOperation asksSettingOf(const char* name, Id user) {
  const auto run = [user](TestHost& host) {
    const int shown = getShowEmailPreview(user);
    const std::string rows = "SELECT 1 FROM UserGeneralSettings WHERE UserIDNum=";
    EXPECT_LE(host.dump(rows + std::to_string(user)), "1|\n");
    return std::to_string(shown);
  };
  return {name, run, "1"};
}

template <class Call>
WalkedOperation dates(const char* name, DateTime byDefault, Call call) {
  return gives(name, dateTimeText(byDefault), [call] { return dateTimeText(call()); });
}

WalkedOperation lastOpenDay() {
  auto friday = dates("friday", {}, [] { return adjustDateToFridayIfWeekendOrHoliday(sunday); });
  friday.closedResult = dateTimeText(sunday.addDays(-2));  // no holiday is known
  return friday;
}

const WalkedOperation operations[] = {
    gives("period", "-15", [] { return std::to_string(getNotificationPeriod(103, 0, false)); }),
    gives("member", "-1", [] { return std::to_string(getFirstValidScheduleNum(103)); }),
    dates("date", {}, [] { return determineNotificationDate(entry); }),
    dates("sibling", dueDate, [] { return getLastUsedNotificationDate(entry, dueDate); }),
    dates("explanation", {}, [] { return explainNotificationDate(entry).result; }),
    lastOpenDay(),
    writes("refresh", [] { refreshNotificationDate(entry); }),
    gives("open", "1 15",
          [] {
            clsAutoNotifyTemplate kind;
            const bool opened = kind.openExistingScheduleType(1);
            return std::to_string(opened) + " " + std::to_string(kind.get_notificationPeriod());
          }),
    gives("openByScheme", "0",
          [] {
            clsAutoNotifyTemplate kind;
            return std::to_string(kind.findAndOpenScheduleTypeByCustomTaskSchemeIDNum(77));
          }),
    saves("saveNew", noId),
    saves("saveGone", 4711),
    saves("saveAgain", storedKind),
    asksSettingOf("settingOfANewUser", newUser),
    asksSettingOf("settingOfAKnownUser", knownUser),
    writes("putSetting", [] { putShowMVPreview(true, newUser); }),
    gives("comment", "", [] { return generateClientAutoNotifyComment(entry); }),
    gives("propagation", "1",
          [] {
            clsAutoNotifyTemplate kind;
            kind.openWithTotalNumAndScheduleNum(103, 1, true);
            return std::to_string(kind.resetNotificationComments());
          }),
};

WALK_OPERATIONS(SchedulingFaults, operations, fillOffice);

TEST(SchedulingStatements, StandAsHostsKnowThem) {
  expectStatements(operations, fillOffice, AUTONOTIFY_TEST_FOLDER "scheduling_statements.txt");
}

}  // namespace
}  // namespace autonotify::test
