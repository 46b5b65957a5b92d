#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "platform/date_time_text.h"
#include "platform/format.h"

namespace autonotify {
namespace {

constexpr DateTime moment = DateTime::of(2026, 4, 3, 13, 5, 9);

/// The moment in these patterns, a bar behind each.
std::string dates(const std::vector<const char*>& patterns) {
  std::string all;
  for (const char* pattern : patterns) all += formatDateTime(moment, pattern) + "|";
  return all;
}

TEST(FormatDateTime, theFormatsOfTemplates) {
  EXPECT_EQ(dates({"d", "dddd", "mmmm", "mmm", "yyyy", "dd/mm/yy", "mm/dd/yy", "dd/mmm/yy"}),
            "3|Friday|April|Apr|2026|03/04/26|04/03/26|03/Apr/26|");
  EXPECT_EQ(dates({"mmmm d", "mmmm yyyy", "mmmm d yyyy", "mmmm d, yyyy", "mmm d yyyy"}),
            "April 3|April 2026|April 3 2026|April 3, 2026|Apr 3 2026|");
  EXPECT_EQ(dates({"mmm d, yyyy", "dddd mmmm d yyyy", "dddd, mmmm d yyyy", "dddd, mmmm d, yyyy"}),
            "Apr 3, 2026|Friday April 3 2026|Friday, April 3 2026|Friday, April 3, 2026|");
}

TEST(FormatDateTime, lettersAndLiterals) {
  EXPECT_EQ(dates({"hhmm", "\\d d", "d\\", "d'é'", "", "\"day\" d", "d \"of mmmm", "ddddd"}),
            "1305|d 3|3\\|3'é'||day 3|3 of mmmm|Friday3|");
  EXPECT_EQ(dates({"h:Nn am/pm", "h:nn AM/PM", "h:mm am/pm", "hh:m:s", "h mmm", "d/m h:m"}),
            "1:05 pm|1:05 PM|1:05 pm|13:5:9|13 Apr|3/4 13:5|");
  EXPECT_EQ(dates({"ddd d m yy", "DDDD MMM YYYY", "hh:nn:ss mm/dd"}),
            "Fri 3 4 26|Friday Apr 2026|13:05:09 04/03|");
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

/// The numbers in each of the patterns, a bar behind each.
std::string numbers(const std::vector<const char*>& patterns, const std::vector<double>& values) {
  std::string all;
  for (const char* pattern : patterns)
    for (const double value : values) all += formatNumber(value, pattern) + "|";
  return all;
}

TEST(FormatNumber, currency) {
  EXPECT_EQ(numbers({"$#,##0.00;$-#,##0.00"},
                    {0, 1234.5, -1234.5, 1234567.891, 999.995, -0.004, -0.005, -0.0, 12, 123456}),
            "$0.00|$1,234.50|$-1,234.50|$1,234,567.89|$1,000.00|$0.00|$-0.01|$0.00|$12.00|"
            "$123,456.00|");
}

TEST(FormatNumber, roundsTheShownNumberHalfAwayFromZero) {
  EXPECT_EQ(numbers({"0.00"}, {0.125, -0.125, 2.675, 1.005, 9.995, 5e-324}),
            "0.13|-0.13|2.68|1.01|10.00|0.00|");
  EXPECT_EQ(numbers({"0.0"}, {99.95, 0.05, 0.04, 0.004, -0.04}), "100.0|0.1|0.0|0.0|0.0|");
  EXPECT_EQ(numbers({"0"}, {0.5, 1.5, 2.5, -2.5, 0.49999999999999994}), "1|2|3|-3|0|");
}

TEST(FormatNumber, placesAndLiterals) {
  EXPECT_EQ(numbers({"#,##0", "#"}, {0}), "0||");
  EXPECT_EQ(numbers({"000"}, {7, 1234}), "007|1234|");
  EXPECT_EQ(numbers({"0.##"}, {1.5}), "1.5|");
  EXPECT_EQ(numbers({"0.0#"}, {1.25, 2}), "1.25|2.0|");
  EXPECT_EQ(numbers({".00", "#.0"}, {5, 0.5}), "5.00|.50|5.0|.5|");
  EXPECT_EQ(numbers({"\\#0", "\"0;\"0", "0 hours", "0;(0)"}, {3}), "#3|0;3|3 hours|3|");
  EXPECT_EQ(numbers({"0;(0)", "0.0;(0)", "0;"}, {-2.7}), "(3)|(3)|-3|");
  EXPECT_EQ(numbers({"", "000-0000"}, {5551234}), "5551234|555-1234|");
  EXPECT_EQ(numbers({"#,##0", "#,##0.0", "0,000,000,000"}, {1234567.5}),
            "1,234,568|1,234,567.5|0,001,234,568|");
  EXPECT_EQ(numbers({"#,##0"}, {1e22}), "10,000,000,000,000,000,000,000|");
}

TEST(FormatNumber, anyNumberAndAnyPatternGiveAText) {
  constexpr double greatest = std::numeric_limits<double>::max();
  EXPECT_EQ(formatNumber(greatest, "0").size(), 309u);
  EXPECT_EQ(formatNumber(std::numeric_limits<double>::infinity(), "0.00"), "inf");
  EXPECT_EQ(formatNumber(std::numeric_limits<double>::quiet_NaN(), "0.00"), "nan");
  for (const char* pattern : {"\"", "\\", ";", ";;", ".", "..", ",", "\"a", "0\\", "é", "0..0"})
    EXPECT_NO_THROW(formatNumber(-1.5, pattern)) << pattern;
}

TEST(DateTimeText, everyDayReadsBack) {
  const DateTime last = DateTime::of(9999, 12, 31);
  std::string previous;
  for (DateTime day = DateTime::of(100, 1, 1); day <= last; day = day.addDays(1)) {
    const std::string text = dateTimeText(day);
    ASSERT_EQ(parseDateTime(text), day) << text;
    ASSERT_LT(previous, text);
    previous = text;
  }
}

TEST(DateTimeText, everySecondOfADayReadsBack) {
  for (std::int32_t second = 1; second < 86400; ++second) {
    const DateTime time = DateTime::fromSerial(46142, second);
    ASSERT_EQ(parseDateTime(dateTimeText(time)), time) << second;
  }
  EXPECT_EQ(dateTimeText(DateTime::of(2026, 4, 30, 14, 5)), "2026-04-30 14:05:00");
  EXPECT_EQ(dateTimeText(DateTime{}), "1899-12-30");
}

TEST(DateTimeText, readsTheFormsThatPeopleWrite) {
  const std::pair<const char*, std::vector<const char*>> cases[] = {
      {"2026-04-30",
       {"  2026-04-30  ", "April 30, 2026", "apr 30 2026", "Apr 30,2026", "30 Apr 2026",
        "30 april, 2026", "4/30/2026", "Thursday, April 30 2026"}},
      {"2026-04-30 14:05:00",
       {"2026-04-30 14:05", "2026-04-30 2:05 PM", "Thu April 30, 2026 2:05 pm"}},
      {"2026-04-30 14:05:09", {"2026-04-30T14:05:09"}},
      {"2026-04-03 08:15:00", {"04/03/2026 08:15"}},
      {"2026-04-03", {"2026-4-3"}},
      {"2026-09-03", {"Sept. 3, 2026"}},
      {"2024-02-29", {"2024-02-29"}},
      {"0100-01-01", {"0100-01-01"}},
      {"1899-12-30", {"12:00 am"}},
      {"1899-12-30 00:30:00", {"12:30 am"}},
      {"1899-12-30 09:05:07", {"9:05:07"}},
      {"1899-12-30 12:30:00", {"12:30 pm"}},
      {"1899-12-30 14:05:00", {"14:05", "2:05 pm", "2:05pm"}}};
  for (const auto& [expected, texts] : cases)
    for (const char* text : texts) EXPECT_EQ(dateTimeText(parseDateTime(text).value()), expected);
}

TEST(DateTimeText, refusesEverythingElse) {
  for (const char* text :
       {"",          " ",         "hello",   "2026",     "2026-04", "24:00", "12:60",
        "12:05:60",  "13:05 pm",  "0:05 am", "2:5",      "2:05 xm", "2:05:", "14",
        "30/4/2026", "4/31/2026", "4/30/26", "April 30", "+1:00",   "1/2/3", "\xFF"})
    EXPECT_FALSE(parseDateTime(text)) << text;
  for (const char* text :
       {"2026-02-30", "2025-02-29", "2026-13-01", "2026-00-10", "2026-04-31", "0099-12-31",
        "10000-01-01", "April 2026", "Ap 30, 2026", "Aprils 30 2026", "2026-04-30x", "2026-04-30 x",
        "2026-04-3014:05", "2026-04-30 14", "14:05 2026-04-30", "-2026-04-30", "2026-04-30T",
        "999999999999-1-1"})
    EXPECT_FALSE(parseDateTime(text)) << text;
}

}  // namespace
}  // namespace autonotify
