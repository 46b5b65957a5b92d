#include <random>

#include "contract/firm_rules.h"
#include "host/services/HostValidationUtilities.h"
#include "scheduling/modNotificationDates.h"
#include "scheduling/schedule_kinds.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

constexpr const char* file = "scheduling_cases.txt";
constexpr DateTime monday = DateTime::of(2026, 11, 23);

using NotificationDates = HostTest;

TEST_F(NotificationDates, StatementOfAKindNormalisesItsArguments) {
  for (const auto& [totalNum, scheduleNum] :
       {std::pair{103, 0}, {103, 6}, {103, 4}, {104, 0}, {104, -1}})
    addKind(totalNum, scheduleNum, 4);
  EXPECT_EQ(getFirstValidScheduleNum(104), noId);
  for (auto [totalNum, scheduleNum, familyRow, totalNumAfter, scheduleNumAfter, found] :
       casesOf<Id, Id, bool, Id, Id, std::string>(file, "kinds normalised")) {
    const std::string sql =
        getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(totalNum, scheduleNum, familyRow);
    EXPECT_EQ(replaceAll(sql, " AND ScheduleTypes.ScheduleNum=", " "),
              "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.TotalNum, "
              "ScheduleTypes.ScheduleNum FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=" +
                  found + ";");
    EXPECT_EQ(totalNum, totalNumAfter);
    EXPECT_EQ(scheduleNum, scheduleNumAfter);
  }
}

TEST_F(NotificationDates, NewRowTakesTheDateOfASibling) {
  for (const auto& [channels, expectedDay] :
       casesOf<std::string, unsigned>(file, "channels of siblings")) {
    const Id scheduleID = addSchedule(103, 1, monday);
    for (unsigned day = 0; const std::string& channel : split(channels)) {
      ++day;
      addNotification(scheduleID, std::stoi(channel), DateTime::of(2026, 11, day), day % 2 == 0);
    }
    EXPECT_EQ(getLastUsedNotificationDate(scheduleID, monday).day(), expectedDay) << channels;
  }
  addNotification(noId, nt_Letter, DateTime::of(2026, 11, 3));
  EXPECT_EQ(getLastUsedNotificationDate(noId, monday), monday) << "no entry, no siblings";
}

TEST_F(NotificationDates, ExplanationTakesTheStepsOfTheCalculation) {
  addKind(103, 1, 3);
  addKind(103, 2, 0);
  addHoliday(monday.addDays(-3));
  for (int round = 0; round < 28; ++round) {
    const bool isFirm = round % 2 == 0, hasSibling = round % 3 == 0;
    plainLocale.settings().firmCode = isFirm ? firmSpecificCode : "another firm";
    const DateTime dueDate = monday.addDays(round / 4);
    const Id entry = addSchedule(103, 1 + round / 2 % 2, dueDate, {{"Custom2", "3PAP"}});
    if (hasSibling) addNotification(entry, nt_Letter, dueDate.addDays(-9));
    const DateExplanation why = explainNotificationDate(entry);
    EXPECT_EQ(why.usedFirmRule, isFirm);
    EXPECT_EQ(why.determined, determineNotificationDate(entry));
    EXPECT_EQ(why.siblingChannel, hasSibling ? nt_Letter : 0);
    EXPECT_EQ(why.afterSibling, getLastUsedNotificationDate(entry, why.determined));
    EXPECT_EQ(why.result, adjustDateToFridayIfWeekendOrHoliday(why.afterSibling));
    EXPECT_EQ(std::ranges::count(why.walk, DayStep::Verdict::counted, &DayStep::verdict),
              std::abs(why.days));
  }
  EXPECT_FALSE(explainNotificationDate(4711).found);
}

// November 2026: the 16th, 23rd and 30th are Mondays.
constexpr DateTime november(unsigned day, int hour = 0) {
  return DateTime::of(2026, 11, day, hour);
}

class BusinessDays : public HostTest {};

TEST_F(BusinessDays, KeepTheTimeOfDayWhichNoHolidayMindsAndSettleForNineDaysAtMost) {
  addHoliday(november(20));
  EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(-1, november(23, 14)), november(19, 14));
  EXPECT_EQ(adjustDateToFridayIfWeekendOrHoliday(november(21, 14)), november(19, 14));
  for (unsigned day = 16; day <= 25; ++day) addHoliday(november(day));
  EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(0, november(16)), november(25));
  EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(0, november(17)), november(26));
}

TEST_F(BusinessDays, DependOnTheTypesOfHoliday) {
  unsigned day = 2;
  for (const auto& [types, isHoliday] : casesOf<std::string, bool>(file, "types of holiday")) {
    for (const std::string& type : split(types)) addHoliday(november(day), type);
    EXPECT_EQ(isStatutoryHoliday(november(day++)), isHoliday) << types;
  }
}

TEST_F(BusinessDays, AgreeWithACountOfOpenDays) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto between = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  const DateTime first = DateTime::of(2026, 1, 1);
  std::set<DateTime> holidays;
  while (holidays.size() < 60) holidays.insert(first.addDays(between(0, 299)));
  for (const DateTime day : holidays) addHoliday(day, between(0, 1) ? "1" : "");
  std::vector<DateTime> open;
  for (DateTime day = first; day < first.addDays(300); day = day.addDays(1)) {
    const bool isWeekend = day.days() % 7 < 2;  // day 0 was a Saturday
    if (!isWeekend && !holidays.contains(day)) open.push_back(day);
  }
  for (int round = 0; round < 60; ++round) {
    const DateTime date = first.addDays(between(100, 200));
    const int days = between(1, 25);
    SCOPED_TRACE(std::to_string(days) + " days from " + dateTimeText(date));
    const auto from = std::lower_bound(open.begin(), open.end(), date);
    const auto after = std::upper_bound(open.begin(), open.end(), date);
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(days, date), after[days - 1]);
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(-days, date), *(from - days));
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(0, date),
              std::min(*from, date.addDays(9)));
    EXPECT_EQ(adjustDateToFridayIfWeekendOrHoliday(date), after[-1]);
  }
}

class NoOpenDay : public host::HostValidationUtilities {
  bool isWeekend(DateTime) override { return true; }
};

/// Both walks run into an end of the calendar, which the person is asked about once.
TEST_F(BusinessDays, EndWithTheCalendarWhenEveryDayIsClosed) {
  references().validationUtilities = std::make_unique<NoOpenDay>();
  const DateTime lastDay = DateTime::of(9999, 12, 31), firstDay = DateTime::of(100, 1, 1);
  for (const int choice : {error_choice::next, error_choice::leave}) {
    const bool goesOn = choice == error_choice::next;
    errors.answer({choice, choice});
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(1, lastDay.addDays(-20)),
              goesOn ? lastDay : DateTime{});
    EXPECT_EQ(adjustDateToFridayIfWeekendOrHoliday(firstDay.addDays(20)),
              goesOn ? firstDay : DateTime{});
  }
  EXPECT_EQ(errors.dialogs(), 4);
  EXPECT_EQ(errors.recorded().back().number, error_number::overflow);
}

}  // namespace
}  // namespace autonotify::test
