#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

#include "platform/date_time_text.h"
#include "platform/format.h"
#include "support/text_table.h"

namespace autonotify {
namespace {

constexpr const char* file = "formats.txt";

TEST(FormatDateTime, showsAMomentInEachPattern) {
  const DateTime moment = DateTime::of(2026, 4, 3, 13, 5, 9);
  test::expectRows(file, "dates", [&](auto& pattern) { return formatDateTime(moment, pattern); });
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

TEST(FormatNumber, showsANumberInEachPattern) {
  for (const auto& row : test::rowsOf(file, "numbers", 3))
    EXPECT_EQ(formatNumber(std::strtod(row[1].c_str(), nullptr), row[0]), row[2])
        << row[0] << " of " << row[1];
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

TEST(DateTimeText, readsTheFormsThatPeopleWriteAndRefusesAllElse) {
  test::expectRows(file, "texts of moments", [](auto& text) {
    const auto moment = parseDateTime(text);
    return moment ? dateTimeText(*moment) : "none";
  });
}

}  // namespace
}  // namespace autonotify
