#include <random>
#include <set>

#include "host/services/HostValidationUtilities.h"
#include "scheduling/modNotificationDates.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

// November 2026: the 16th, 23rd and 30th are Mondays.
constexpr DateTime november(unsigned day, int hour = 0) {
  return DateTime::of(2026, 11, day, hour);
}

class BusinessDays : public HostTest {};

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
  const std::pair<std::vector<std::string>, bool> cases[] = {
      {{""}, true},       {{"1"}, true},      {{"3"}, true},     {{"2"}, false},
      {{"0"}, false},     {{"4"}, false},     {{"-1"}, false},   {{}, false},
      {{"2", "1"}, true}, {{"1", "2"}, true}, {{"2", ""}, true}, {{"2", "0"}, false}};
  unsigned day = 2;
  for (const auto& [types, isHoliday] : cases) {
    for (const std::string& type : types) addHoliday(november(day), type);
    EXPECT_EQ(isStatutoryHoliday(november(day)), isHoliday) << testing::PrintToString(types);
    ++day;
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

/// Without an open day, both walks run into an end of the calendar, which the person is asked about
/// once.
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
