#include <algorithm>
#include <random>
#include <set>

#include "channels/modChannelNotifications.h"
#include "contract/firm_rules.h"
#include "contract/recordsets.h"
#include "host/services/HostValidationUtilities.h"
#include "platform/text.h"
#include "scheduling/modNotificationDates.h"
#include "scheduling/schedule_kinds.h"
#include "support/HostTest.h"
#include "support/text_table.h"

namespace autonotify::test {
namespace {

constexpr const char* file = "scheduling_cases.txt";
constexpr DateTime monday = DateTime::of(2026, 11, 23);

class NotificationDates : public HostTest {
 protected:
  void setFirmCode(const std::string& code) { plainLocale.settings().firmCode = code; }
  DateTime dateOf(Id row) {
    return toDateTime(valueOf("ClientNotification", "NotificationDate",
                              "ClientNotificationID=" + std::to_string(row)));
  }
};

TEST_F(NotificationDates, PeriodHasOneSignForDisplayAndOneForCalculation) {
  addKind(103, 1, 5);
  addKind(103, 2, -3);
  addKind(103, 3, 0);
  for (const auto& [scheduleNum, shown] : {std::pair{1, 5}, {2, -3}, {3, 0}, {4, 15}}) {
    EXPECT_EQ(getNotificationPeriod(103, scheduleNum, true), shown);
    EXPECT_EQ(getNotificationPeriod(103, scheduleNum, false), -shown);
  }
  const std::int16_t lowest = -32768;
  addKind(103, 5, lowest);
  errors.answer({error_choice::leave});
  EXPECT_EQ(getNotificationPeriod(103, 5, false), lowest) << "has no positive counterpart";
}

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

TEST_F(NotificationDates, DueDateIsMovedByThePeriodOfItsKind) {
  addKind(103, 1, 1);
  addKind(103, 2, -3);
  EXPECT_EQ(determineNotificationDate(addSchedule(103, 1, monday)), monday.addDays(-3));
  EXPECT_EQ(determineNotificationDate(addSchedule(103, 2, monday.addDays(-4))), monday.addDays(1));
  EXPECT_EQ(determineNotificationDate(addSchedule(103, 3, monday)), monday.addDays(-21));
  EXPECT_TRUE(determineNotificationDate(4711).isZero());
  EXPECT_TRUE(adjustDateToFridayIfWeekendOrHoliday({}).isZero()) << "a Saturday of 1899";
}

TEST_F(NotificationDates, FirmRuleGoesByTheMethodInsteadOfTheKind) {
  addKind(103, 1, 1);
  for (const auto& [custom2, days] : casesOf<std::string, int>(file, "days of methods")) {
    const Id scheduleID = addSchedule(103, 1, monday, {{"Custom2", custom2}});
    setFirmCode("another firm");
    EXPECT_EQ(determineNotificationDate(scheduleID), monday.addDays(-3));
    setFirmCode(firmSpecificCode);
    EXPECT_EQ(determineNotificationDate(scheduleID),
              dateAddBusinessDaysWithoutWeekendsAndHolidays(days, monday))
        << custom2;
  }
}

TEST_F(NotificationDates, MissingDueDateOrMethodIsAskedAbout) {
  addKind(103, 1, 1);
  const Id noDueDate = addSchedule(103, 1, DateTime{});
  const Id noMethod = addSchedule(103, 1, monday);
  for (int choice : {error_choice::next, error_choice::leave}) {
    errors.answer({choice});
    EXPECT_TRUE(determineNotificationDate(noDueDate).isZero());
  }
  const Id row = addNotification(noDueDate, nt_Email, monday);
  errors.answer({error_choice::next});
  refreshNotificationDate(noDueDate);
  EXPECT_EQ(dateOf(row), monday) << "stays rather than being taken for due in 1899";
  for (int choice : {error_choice::next, error_choice::leave}) {
    const Id entry = addSchedule(103, 1, DateTime{});
    errors.answer({choice});
    const Id added =
        addNewLetterNotificationFromScheduleNameAndDueDate({entry, {}, "GST", monday, "Hello"});
    EXPECT_EQ(notification(added, "NotificationDate"), "NULL|\n");
  }
  setFirmCode(firmSpecificCode);
  errors.answer({error_choice::leave, error_choice::next});
  EXPECT_TRUE(determineNotificationDate(noMethod).isZero());
  EXPECT_EQ(determineNotificationDate(noMethod), monday.addDays(-11)) << "seven open days";
  EXPECT_EQ(errors.recorded().back().number, error_number::invalidUseOfNull);
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

TEST_F(NotificationDates, RefreshMovesTheFirstRowOfEachChannel) {
  addKind(103, 1, 1);
  const DateTime old = DateTime::of(2026, 1, 5);
  const Id scheduleID = addSchedule(103, 1, monday.addDays(-1));
  std::vector<Id> firstRows;
  for (const int channel : {8, 4, 2, 1})
    firstRows.push_back(addNotification(scheduleID, channel, old, channel == 1));
  const Id secondEmail = addNotification(scheduleID, 1, old);
  const Id other = addNotification(addSchedule(103, 1, monday), 1, old);
  setFirmCode(firmSpecificCode);

  refreshNotificationDate(scheduleID);

  for (const Id row : firstRows) EXPECT_EQ(dateOf(row), monday.addDays(-3));
  EXPECT_EQ(dateOf(secondEmail), old);
  EXPECT_EQ(dateOf(other), old);
}

TEST_F(NotificationDates, ExplanationTakesTheStepsOfTheCalculation) {
  addKind(103, 1, 3);
  addKind(103, 2, 0);
  addHoliday(monday.addDays(-3));
  for (int round = 0; round < 28; ++round) {
    const bool isFirm = round % 2 == 0, hasSibling = round % 3 == 0;
    setFirmCode(isFirm ? firmSpecificCode : "another firm");
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
