#include <gtest/gtest.h>

#include "control/contract/firm_rules.h"
#include "scheduling/modNotificationDates.h"
#include "scheduling/schedule_kinds.h"
#include "scheduling/scheduling_fixture.h"

namespace autonotify::test {
namespace {

constexpr DateTime monday = DateTime::of(2026, 11, 23);

class NotificationDates : public SchedulingTest {};

TEST_F(NotificationDates, PeriodHasOneSignForDisplayAndOneForCalculation) {
  addKind(103, 1, 5);
  addKind(103, 2, -3);
  addKind(103, 3, 0);
  struct Case {
    Id totalNum;
    Id scheduleNum;
    int shown;
  };
  const Case cases[] = {{103, 1, 5}, {103, 2, -3}, {103, 3, 0}, {103, 4, 15}, {109, 1, 15}};
  for (const Case& c : cases) {
    EXPECT_EQ(getNotificationPeriod(c.totalNum, c.scheduleNum, true), c.shown);
    EXPECT_EQ(getNotificationPeriod(c.totalNum, c.scheduleNum, false), -c.shown);
  }
}

TEST_F(NotificationDates, KindWithoutARowFallsBack) {
  addKind(101, 10, 7);
  addKind(103, 0, 1);
  addKind(103, 6, 6);
  addKind(103, 4, 4);
  addKind(104, 0, 1);
  addKind(104, -1, 2);
  EXPECT_EQ(getFirstValidScheduleNum(103), 4);
  EXPECT_EQ(getFirstValidScheduleNum(104), -1);
  EXPECT_EQ(getNotificationPeriod(103, 0, true), 4) << "the family's first member";
  EXPECT_EQ(getNotificationPeriod(104, -1, true), 7) << "a family without a member";
  EXPECT_EQ(getNotificationPeriod(0, 4, true), 7) << "no family";
}

TEST_F(NotificationDates, StatementOfAKindNormalisesItsArguments) {
  addKind(103, 4, 4);
  struct Case {
    Id totalNum;
    Id scheduleNum;
    bool familyRow;
    Id expectedTotalNum;
    Id expectedScheduleNum;
    std::string where;
  };
  const Case cases[] = {
      {103, 2, false, 103, 2, "103 2"},   {103, 0, false, 103, 4, "103 4"},
      {104, 0, false, 101, 10, "101 10"}, {0, 2, false, 101, 10, "101 10"},
      {-1, -1, true, 101, 10, "101 10"},  {103, 2, true, 103, 2, "103 2"},
      {103, 0, true, 103, 0, "103 -1"},
  };
  for (const Case& c : cases) {
    Id totalNum = c.totalNum;
    Id scheduleNum = c.scheduleNum;
    const std::string sql =
        getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(totalNum, scheduleNum, c.familyRow);
    const std::size_t blank = c.where.find(' ');
    EXPECT_EQ(sql,
              "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.TotalNum, "
              "ScheduleTypes.ScheduleNum FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=" +
                  c.where.substr(0, blank) +
                  " AND ScheduleTypes.ScheduleNum=" + c.where.substr(blank + 1) + ";");
    EXPECT_EQ(totalNum, c.expectedTotalNum);
    EXPECT_EQ(scheduleNum, c.expectedScheduleNum);
  }
}

TEST_F(NotificationDates, DueDateIsMovedByThePeriodOfItsKind) {
  addKind(103, 1, 1);
  addKind(103, 2, -3);
  EXPECT_EQ(determineNotificationDate(addSchedule(103, 1, monday)), monday.addDays(-3));
  EXPECT_EQ(determineNotificationDate(addSchedule(103, 2, monday.addDays(-4))), monday.addDays(1));
  EXPECT_EQ(determineNotificationDate(addSchedule(103, 3, monday)), monday.addDays(-21));
  EXPECT_TRUE(determineNotificationDate(4711).isZero());
}

TEST_F(NotificationDates, FirmRuleGoesByTheMethodInsteadOfTheKind) {
  addKind(103, 1, 1);
  struct Case {
    const char* custom2;
    int days;
  };
  const Case cases[] = {{"6WIRE", -7}, {"5RAI", -7},   {"4PAP", -6},  {"3PAP", -5},
                        {"2PAP", -4},  {"1PAP", -4},   {"0PAP", -4},  {"  3pap ", -5},
                        {"", -7},      {"cheque", -7}, {"4PAP x", -7}};
  for (const Case& c : cases) {
    const Id scheduleID = addSchedule(103, 1, monday, {{"Custom2", c.custom2}});
    setFirmCode("another firm");
    EXPECT_EQ(determineNotificationDate(scheduleID), monday.addDays(-3));
    setFirmCode(firmSpecificCode);
    EXPECT_EQ(determineNotificationDate(scheduleID),
              dateAddBusinessDaysWithoutWeekendsAndHolidays(c.days, monday))
        << c.custom2;
  }
}

TEST_F(NotificationDates, MissingDueDateOrMethodIsAskedAbout) {
  addKind(103, 1, 1);
  const Id noDueDate = addSchedule(103, 1, DateTime{});
  const Id noMethod = addSchedule(103, 1, monday);
  for (int choice : {error_choice::next, error_choice::leave}) {
    errors().answer({choice});
    EXPECT_TRUE(determineNotificationDate(noDueDate).isZero());
  }
  setFirmCode(firmSpecificCode);
  errors().answer({error_choice::leave});
  EXPECT_TRUE(determineNotificationDate(noMethod).isZero());
  EXPECT_EQ(errors().recorded().back().number, error_number::invalidUseOfNull);
}

TEST_F(NotificationDates, NewRowTakesTheDateOfASibling) {
  struct Case {
    std::vector<int> channels;  // rows dated the 1st, 2nd, ... of the month
    unsigned expectedDay;
  };
  const Case cases[] = {
      {{}, 23},       {{8}, 1},       {{8, 4}, 2}, {{4, 8}, 1},       {{4, 4}, 1}, {{8, 8}, 1},
      {{2, 4, 8}, 1}, {{8, 4, 2}, 3}, {{2, 2}, 2}, {{8, 2, 1, 2}, 3}, {{1, 1}, 1}, {{16}, 23},
  };
  for (const Case& c : cases) {
    const Id scheduleID = addSchedule(103, 1, monday);
    unsigned day = 0;
    for (int channel : c.channels) {
      ++day;
      addNotification(scheduleID, channel, DateTime::of(2026, 11, day), day % 2 == 0);
    }
    EXPECT_EQ(getLastUsedNotificationDate(scheduleID, monday).day(), c.expectedDay)
        << testing::PrintToString(c.channels);
  }
}

TEST_F(NotificationDates, RefreshMovesTheFirstRowOfEachChannel) {
  addKind(103, 1, 1);
  const DateTime old = DateTime::of(2026, 1, 5);
  const Id scheduleID = addSchedule(103, 1, monday.addDays(-1));
  const Id phone = addNotification(scheduleID, 8, old);
  const Id sentEmail = addNotification(scheduleID, 1, old, true);
  const Id secondEmail = addNotification(scheduleID, 1, old);
  const Id other = addNotification(addSchedule(103, 1, monday), 1, old);
  setFirmCode(firmSpecificCode);

  refreshNotificationDate(scheduleID);

  const DateTime friday = monday.addDays(-3);
  EXPECT_EQ(dateOf(phone), friday);
  EXPECT_EQ(dateOf(sentEmail), friday);
  EXPECT_EQ(dateOf(secondEmail), old);
  EXPECT_EQ(dateOf(other), old);
  refreshNotificationDate(4711);
}

TEST_F(NotificationDates, RefreshWithoutADueDateMovesNothing) {
  const DateTime old = DateTime::of(2026, 1, 5);
  const Id scheduleID = addSchedule(103, 1, DateTime{});
  const Id email = addNotification(scheduleID, 1, old);
  errors().answer({error_choice::next});
  refreshNotificationDate(scheduleID);
  EXPECT_EQ(dateOf(email), old);
}

}  // namespace
}  // namespace autonotify::test
