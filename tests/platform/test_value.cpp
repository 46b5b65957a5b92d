#include <sys/resource.h>

#include <limits>
#include <new>

#include "platform/PlatformError.h"
#include "platform/Value.h"
#include "platform/format.h"
#include "support/text_table.h"
#include "support/value_cells.h"

namespace autonotify {
namespace {

/// What a conversion gives, or "error N: description".
template <class Convert>
std::string outcome(Convert convert, const Value& value) {
  try {
    return toText(Value(convert(value)));
  } catch (const PlatformError& error) {
    return "error " + std::to_string(error.number()) + ": " + error.description();
  }
}

template <class Convert>
void expectOutcomes(const char* table, Convert convert) {
  test::expectRows("conversions.txt", table,
                   [&](auto& cell) { return outcome(convert, test::valueOfCell(cell)); });
}

TEST(Value, becomesWhatAConversionMakesOfIt) {
  expectOutcomes("integer", toInteger);
  expectOutcomes("small integer", toInteger16);
  expectOutcomes("byte", [](const Value& value) { return int{toByte(value)}; });
  expectOutcomes("number", toDouble);
  expectOutcomes("flag", toFlag);
  expectOutcomes("moment", toDateTime);
  expectOutcomes("text", [](const Value& value) { return toText(value); });
  test::expectRows("conversions.txt", "numeric",
                   [](auto& text) { return isNumeric(text) ? "yes" : "no"; });
}

TEST(Value, serialAndMomentAreInverse) {
  for (const std::int32_t days : {-657434, -36000, -2, -1, 0, 1, 46142, 2958465}) {
    for (std::int32_t second = 0; second < 86400; second += 97) {
      const DateTime moment = DateTime::fromSerial(days, second);
      ASSERT_EQ(toDateTime(Value(toDouble(moment))), moment) << days << ' ' << second;
    }
  }
}

#ifndef AUTONOTIFY_SANITIZE  // under sanitizers the program ends where memory is short
TEST(Value, throwsWhereACopyFindsNoMemory) {
  const Value large(std::string(1u << 26, 'x'));
  rlimit usual;
  getrlimit(RLIMIT_AS, &usual);
  const rlimit none{0, usual.rlim_max};
  setrlimit(RLIMIT_AS, &none);
  EXPECT_THROW(Value{large}, std::bad_alloc);
  setrlimit(RLIMIT_AS, &usual);
}
#endif

constexpr const char* formats = "formats.txt";

TEST(FormatDateTime, showsAMomentInEachPattern) {
  const DateTime moment = DateTime::of(2026, 4, 3, 13, 5, 9);
  test::expectRows(formats, "dates", [&](auto& pattern) {
    EXPECT_EQ(DateFormat(pattern).text(moment), formatDateTime(moment, pattern));
    return formatDateTime(moment, pattern);
  });
}

TEST(FormatDateTime, twelveHourClockAndEarlyYears) {
  test::expectRows(formats, "hours", [](auto& hour) {
    return formatDateTime(DateTime::of(2026, 4, 3, std::stoi(hour)), "h am/pm");
  });
  EXPECT_EQ(formatDateTime(DateTime{}, "hh:nn"), "00:00");
  EXPECT_EQ(formatDateTime(DateTime::of(987, 6, 5), "d m yyyy yy"), "5 6 987 87");
}

TEST(FormatDateTime, everyDayReadsBackFromItsLongForm) {
  for (DateTime day = DateTime::of(1899, 12, 1); day < DateTime::of(2105, 1, 1);
       day = day.addDays(1))
    ASSERT_EQ(parseDateTime(formatDateTime(day, "dddd, mmmm d, yyyy")), day);
}

TEST(FormatNumber, showsANumberInEachPattern) {
  for (const auto& row : test::rowsOf(formats, "numbers", 3))
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
  test::expectRows(formats, "texts of moments", [](auto& text) {
    const auto moment = parseDateTime(text);
    return moment ? dateTimeText(*moment) : "none";
  });
}

}  // namespace
}  // namespace autonotify
