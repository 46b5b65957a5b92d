#include <gtest/gtest.h>

#include <random>
#include <set>

#include "scheduling/modNotificationDates.h"
#include "scheduling/scheduling_fixture.h"

namespace autonotify::test {
namespace {

// November 2026: the 16th, 23rd and 30th are Mondays.
constexpr DateTime november(unsigned day, int hour = 0) {
  return DateTime::of(2026, 11, day, hour);
}

class BusinessDays : public SchedulingTest {};

TEST_F(BusinessDays, WalkPastWeekendsAndHolidays) {
  addHoliday(november(11));
  struct Case {
    int days;
    DateTime from;
    DateTime expected;
  };
  const Case cases[] = {
      {-1, november(23), november(20)},  // Monday to Friday
      {-3, november(18), november(13)},  // Wednesday past a weekend
      {3, november(19), november(24)},   // Thursday, after the due date
      {-1, november(21), november(20)},  // from a Saturday
      {1, november(21), november(23)},   //
      {-1, november(12), november(10)},  // past the holiday
      {1, november(10), november(12)},   //
      {-15, november(27), november(5)},  // three weekends and the holiday
      {0, november(18), november(18)},   // an open day stays
      {0, november(21), november(23)},   // a closed one goes forward
      {0, november(11), november(12)},   //
  };
  for (const Case& c : cases) {
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(c.days, c.from), c.expected)
        << c.days << " days from " << dateTimeText(c.from);
  }
}

TEST_F(BusinessDays, KeepTheTimeOfDayWhichNoHolidayMinds) {
  addHoliday(november(20));
  EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(-1, november(23, 14)), november(19, 14));
  EXPECT_EQ(adjustDateToFridayIfWeekendOrHoliday(november(21, 14)), november(19, 14));
}

TEST_F(BusinessDays, SettleForNineDaysAtMost) {
  for (unsigned day = 16; day <= 25; ++day) addHoliday(november(day));
  EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(0, november(16)), november(25));
  EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(0, november(17)), november(26));
}

TEST_F(BusinessDays, DependOnTheTypesOfHoliday) {
  struct Case {
    std::vector<std::string> types;
    bool isHoliday;
  };
  const Case cases[] = {{{""}, true},       {{"1"}, true},     {{"3"}, true},
                        {{"2"}, false},     {{"0"}, false},    {{"4"}, false},
                        {{"-1"}, false},    {{}, false},       {{"2", "1"}, true},
                        {{"1", "2"}, true}, {{"2", ""}, true}, {{"2", "0"}, false}};
  unsigned day = 2;
  for (const Case& c : cases) {
    for (const std::string& type : c.types) addHoliday(november(day), type);
    EXPECT_EQ(isStatutoryHoliday(november(day)), c.isHoliday) << testing::PrintToString(c.types);
    ++day;
  }
}

TEST_F(BusinessDays, GoBackToTheFriday) {
  addHoliday(november(13));  // Friday
  addHoliday(november(16));  // Monday
  addHoliday(november(28));  // a Saturday that closes anyway
  struct Case {
    DateTime date;
    DateTime expected;
  };
  const Case cases[] = {
      {november(18), november(18)}, {november(21), november(20)}, {november(22), november(20)},
      {november(14), november(12)}, {november(16), november(12)}, {november(13), november(12)},
      {november(29), november(27)},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(adjustDateToFridayIfWeekendOrHoliday(c.date), c.expected) << dateTimeText(c.date);
  }
}

TEST_F(BusinessDays, KnowNoHolidaysWhenTheDatabaseIsClosed) {
  addHoliday(november(20));
  closeDatabase();
  EXPECT_FALSE(isStatutoryHoliday(november(20)));
  EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(-1, november(23)), november(20));
}

/// A calendar by its open days alone, without a walk.
class Calendar {
 public:
  Calendar(DateTime first, int length, const std::set<DateTime>& holidays) {
    for (int i = 0; i < length; ++i) {
      const DateTime day = first.addDays(i);
      const bool weekend = (day.days() % 7 + 7) % 7 < 2;  // day 0 was a Saturday
      if (!weekend && !holidays.contains(day)) open_.push_back(day);
    }
  }

  /// The `count`th open day before (negative) or after the date.
  DateTime openDay(DateTime date, int count) const {
    const auto before = std::lower_bound(open_.begin(), open_.end(), date);
    const auto after = std::upper_bound(open_.begin(), open_.end(), date);
    return count < 0 ? *(before + count) : *(after + count - 1);
  }
  DateTime lastOpenDayUpTo(DateTime date) const {
    return *(std::upper_bound(open_.begin(), open_.end(), date) - 1);
  }
  DateTime firstOpenDayFrom(DateTime date) const {
    return *std::lower_bound(open_.begin(), open_.end(), date);
  }

 private:
  std::vector<DateTime> open_;
};

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
  const Calendar calendar(first, 300, holidays);

  for (int round = 0; round < 60; ++round) {
    const DateTime date = first.addDays(between(100, 200));
    const int days = between(1, 25);
    SCOPED_TRACE(std::to_string(days) + " days from " + dateTimeText(date));
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(days, date),
              calendar.openDay(date, days));
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(-days, date),
              calendar.openDay(date, -days));
    EXPECT_EQ(adjustDateToFridayIfWeekendOrHoliday(date), calendar.lastOpenDayUpTo(date));
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(0, date),
              std::min(calendar.firstOpenDayFrom(date), date.addDays(9)));
  }
}

/// Without an open day, both walks run into an end of the calendar, which the person is asked about
/// once.
TEST_F(BusinessDays, EndWithTheCalendarWhenEveryDayIsClosed) {
  closeEveryDay();
  struct Case {
    int choice;
    DateTime last;
    DateTime firstDay;
  };
  const DateTime lastDay = DateTime::of(9999, 12, 31);
  const DateTime firstDay = DateTime::of(100, 1, 1);
  const Case cases[] = {{error_choice::next, lastDay, firstDay},
                        {error_choice::leave, DateTime{}, DateTime{}}};
  for (const Case& c : cases) {
    errors().answer({c.choice});
    EXPECT_EQ(dateAddBusinessDaysWithoutWeekendsAndHolidays(1, lastDay.addDays(-20)), c.last);
    errors().answer({c.choice});
    EXPECT_EQ(adjustDateToFridayIfWeekendOrHoliday(firstDay.addDays(20)), c.firstDay);
  }
  EXPECT_EQ(errors().dialogs(), 4);
  EXPECT_EQ(errors().recorded().back().number, error_number::overflow);
}

}  // namespace
}  // namespace autonotify::test
