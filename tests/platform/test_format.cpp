#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "platform/date_time_text.h"
#include "platform/format.h"

namespace autonotify {
namespace {

constexpr DateTime moment = DateTime::of(2026, 4, 3, 13, 5, 9);

void expectDates(const std::vector<std::pair<const char*, const char*>>& cases) {
  for (const auto& [pattern, expected] : cases)
    EXPECT_EQ(formatDateTime(moment, pattern), expected) << pattern;
}

TEST(FormatDateTime, theFormatsOfTemplates) {
  expectDates(
      {{"d", "3"}, {"dddd", "Friday"}, {"mmmm", "April"}, {"mmm", "Apr"}, {"yyyy", "2026"}});
  expectDates({{"mmmm d yyyy", "April 3 2026"},
               {"mmm d yyyy", "Apr 3 2026"},
               {"dd/mm/yy", "03/04/26"},
               {"mm/dd/yy", "04/03/26"},
               {"mmmm yyyy", "April 2026"},
               {"mmmm d", "April 3"},
               {"dd/mmm/yy", "03/Apr/26"},
               {"mmm d, yyyy", "Apr 3, 2026"}});
  expectDates({{"dddd mmmm d yyyy", "Friday April 3 2026"}, {"mmmm d, yyyy", "April 3, 2026"}});
  expectDates({{"dddd, mmmm d yyyy", "Friday, April 3 2026"},
               {"dddd, mmmm d, yyyy", "Friday, April 3, 2026"}});
}

TEST(FormatDateTime, lettersAndLiterals) {
  expectDates({{"hhmm", "1305"}, {"\\d d", "d 3"}, {"d\\", "3\\"}, {"d'é'", "3'é'"}, {"", ""}});
  expectDates({{"ddd d m yy", "Fri 3 4 26"},
               {"h:Nn am/pm", "1:05 pm"},
               {"h:nn AM/PM", "1:05 PM"},
               {"h:mm am/pm", "1:05 pm"},
               {"hh:m:s", "13:5:9"},
               {"h mmm", "13 Apr"},
               {"d/m h:m", "3/4 13:5"},
               {"\"day\" d", "day 3"},
               {"d \"of mmmm", "3 of mmmm"},
               {"ddddd", "Friday3"}});
  expectDates({{"DDDD MMM YYYY", "Friday Apr 2026"}, {"hh:nn:ss mm/dd", "13:05:09 04/03"}});
}

TEST(FormatDateTime, twelveHourClock) {
  const char* const expected[] = {"12 am", "1 am", "11 am", "12 pm", "1 pm", "11 pm"};
  const int hours[] = {0, 1, 11, 12, 13, 23};
  for (std::size_t i = 0; i < std::size(hours); ++i)
    EXPECT_EQ(formatDateTime(DateTime::of(2026, 4, 3, hours[i]), "h am/pm"), expected[i]);
  EXPECT_EQ(formatDateTime(DateTime{}, "hh:nn"), "00:00");
}

TEST(FormatDateTime, everyDayReadsBackFromItsLongForm) {
  for (DateTime day = DateTime::of(1899, 12, 1); day < DateTime::of(2105, 1, 1);
       day = day.addDays(1))
    ASSERT_EQ(parseDateTime(formatDateTime(day, "dddd, mmmm d, yyyy")), day);
}

struct NumberCase {
  double number;
  const char* pattern;
  const char* expected;
};

void expectNumbers(const std::vector<NumberCase>& cases) {
  for (const auto& [number, pattern, expected] : cases)
    EXPECT_EQ(formatNumber(number, pattern), expected) << number << ' ' << pattern;
}

TEST(FormatNumber, currency) {
  const char* const pattern = "$#,##0.00;$-#,##0.00";
  for (const auto& [number, expected] : {std::pair{0.0, "$0.00"},
                                         {1234.5, "$1,234.50"},
                                         {-1234.5, "$-1,234.50"},
                                         {1234567.891, "$1,234,567.89"},
                                         {999.995, "$1,000.00"},
                                         {-0.004, "$0.00"},
                                         {-0.005, "$-0.01"},
                                         {-0.0, "$0.00"},
                                         {12.0, "$12.00"},
                                         {123456.0, "$123,456.00"}})
    EXPECT_EQ(formatNumber(number, pattern), expected) << number;
}

TEST(FormatNumber, roundsTheShownNumberHalfAwayFromZero) {
  expectNumbers({{0.125, "0.00", "0.13"},
                 {-0.125, "0.00", "-0.13"},
                 {2.675, "0.00", "2.68"},
                 {1.005, "0.00", "1.01"},
                 {0.5, "0", "1"},
                 {1.5, "0", "2"},
                 {2.5, "0", "3"},
                 {-2.5, "0", "-3"},
                 {9.995, "0.00", "10.00"},
                 {99.95, "0.0", "100.0"},
                 {0.05, "0.0", "0.1"},
                 {0.04, "0.0", "0.0"},
                 {0.004, "0.0", "0.0"},
                 {-0.04, "0.0", "0.0"},
                 {5e-324, "0.00", "0.00"}});
  expectNumbers({{0.49999999999999994, "0", "0"}});
}

TEST(FormatNumber, placesAndLiterals) {
  expectNumbers({{0, "#,##0", "0"},
                 {0, "#", ""},
                 {7, "000", "007"},
                 {1234, "000", "1234"},
                 {1.5, "0.##", "1.5"},
                 {1.25, "0.0#", "1.25"},
                 {2, "0.0#", "2.0"},
                 {5, ".00", "5.00"},
                 {0.5, ".00", ".50"},
                 {0.5, "#.0", ".5"},
                 {3, "\\#0", "#3"},
                 {3, "\"0;\"0", "0;3"},
                 {-3, "0;(0)", "(3)"},
                 {-3, "0;", "-3"},
                 {3, "0;(0)", "3"},
                 {12, "", "12"}});
  expectNumbers({{1234567, "#,##0", "1,234,567"},
                 {1234.5, "#,##0.0", "1,234.5"},
                 {3, "0 hours", "3 hours"},
                 {-2.7, "0.0;(0)", "(3)"},
                 {5551234, "000-0000", "555-1234"}});
  expectNumbers({{1234567, "0,000,000,000", "0,001,234,567"},
                 {1e22, "#,##0", "10,000,000,000,000,000,000,000"}});
}

TEST(FormatNumber, anyNumberAndAnyPatternGiveAText) {
  constexpr double greatest = std::numeric_limits<double>::max();
  EXPECT_EQ(formatNumber(greatest, "0").size(), 309u);
  EXPECT_EQ(formatNumber(std::numeric_limits<double>::infinity(), "0.00"), "inf");
  EXPECT_EQ(formatNumber(std::numeric_limits<double>::quiet_NaN(), "0.00"), "nan");
  for (const char* pattern : {"\"", "\\", ";", ";;", ".", "..", ",", "\"a", "0\\", "é", "0..0"})
    EXPECT_NO_THROW(formatNumber(-1.5, pattern)) << pattern;
}

}  // namespace
}  // namespace autonotify
