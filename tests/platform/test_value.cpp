#include <gtest/gtest.h>
#include <sys/resource.h>

#include <limits>
#include <new>
#include <string>
#include <vector>

#include "platform/PlatformError.h"
#include "platform/Value.h"

namespace autonotify {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
const DateTime april30 = DateTime::of(2026, 4, 30);
const DateTime april30Noon = DateTime::of(2026, 4, 30, 12);

/// What a conversion gives, or "error N: description".
template <class Convert>
std::string outcome(Convert convert, const Value& value) {
  try {
    return toText(Value(convert(value)));
  } catch (const PlatformError& error) {
    return "error " + std::to_string(error.number()) + ": " + error.description();
  }
}

const std::string nullFault = "error 94: Invalid use of Null";
const std::string typeFault = "error 13: Type mismatch";
const std::string overflowFault = "error 6: Overflow";

/// What a conversion gives of these, a bar between two.
template <class Convert>
std::string outcomes(Convert convert, const std::vector<Value>& values) {
  std::string all;
  for (const Value& value : values) all += (all.empty() ? "" : "|") + outcome(convert, value);
  return all;
}

template <class Convert>
void checkAll(Convert convert, const std::string& expected, const std::vector<Value>& values) {
  for (std::size_t i = 0; i < values.size(); ++i)
    EXPECT_EQ(outcome(convert, values[i]), expected) << "value " << i;
}

TEST(Value, becomesInteger) {
  checkAll(toInteger, "0", {false, 0.5, -0.5});
  checkAll(toInteger, overflowFault, {2147483647.5, 1e300, infinity, notANumber, "2147483648"});
  checkAll(toInteger, overflowFault, {std::int64_t{2147483648}, std::int64_t{-2147483649}});
  checkAll(toInteger, overflowFault, {std::numeric_limits<std::int64_t>::min()});
  checkAll(toInteger, "-2147483648", {-2147483648.5, " -2147483648", std::int64_t{-2147483648}});
  EXPECT_EQ(outcomes(toInteger, {true, april30, april30Noon, 1.5, -2.5, 2.5000001, "3.5"}),
            "-1|46142|46142|2|-2|3|4");
  EXPECT_EQ(outcomes(toInteger, {Null{}, std::int64_t{2147483647}}), nullFault + "|2147483647");
}

TEST(Value, readsTextAsOneDecimalNumber) {
  checkAll(toDouble, "12", {"12", "  12 ", "+12"});
  checkAll(toDouble, typeFault,
           {"", "   ", "12abc", "0x1F", "1 2", "1,000", "+-1", "--1", "-", ".", "1e", "nan", "inf",
            "True", "12\n", "-infinity", "2026-04-30"});
  checkAll(toDouble, typeFault, {std::string("1\0", 2)});
  EXPECT_EQ(outcomes(toDouble, {"-12", ".5", "5.", "1e3", "007", "-1.25E-2", "1e999"}),
            "-12|0.5|5|1000|7|-0.0125|" + overflowFault);
}

TEST(Value, tellsNumericTexts) {
  for (const char* text : {"0", " 42 ", "-1.5", "1e3", "1e999"})
    EXPECT_TRUE(isNumeric(text)) << text;
  for (const char* text : {"", " ", "12abc", "nan", "inf", "1,5", "&H1F", "1-2"})
    EXPECT_FALSE(isNumeric(text)) << text;
}

TEST(Value, becomesInteger16OrAByte) {
  const auto asByte = [](const Value& value) { return int{toByte(value)}; };
  checkAll(asByte, overflowFault, {256, -1, true});
  EXPECT_EQ(outcomes(asByte, {0, 255.4}), "0|255");
  checkAll(toInteger16, overflowFault, {32768, -32769, april30});
  EXPECT_EQ(outcomes(toInteger16, {32767, 32767.4, -32768, Null{}, "x"}),
            "32767|32767|-32768|" + nullFault + "|" + typeFault);
}

TEST(Value, becomesFlag) {
  checkAll(toFlag, "False", {0, " fALSE ", "0", DateTime{}});
  checkAll(toFlag, "True", {-1, 0.25, "True", "2", april30});
  checkAll(toFlag, typeFault, {"yes", ""});
  checkAll(toFlag, nullFault, {Null{}});
}

TEST(Value, becomesDateTime) {
  checkAll(toDateTime, "2026-04-30", {46142, "April 30, 2026", 46141.99999999});
  checkAll(toDateTime, overflowFault, {2958466, -657435, infinity, 2958465.9999999, notANumber});
  checkAll(toDateTime, "2026-04-30 12:00:00", {april30Noon, 46142.5});
  checkAll(toDateTime, typeFault, {"46142", ""});
  EXPECT_EQ(outcomes(toDateTime, {0, true, 2958465, -657434, -1.25, Null{}}),
            "1899-12-30|1899-12-29|9999-12-31|0100-01-01|1899-12-29 06:00:00|" + nullFault);
}

TEST(Value, becomesText) {
  EXPECT_EQ(outcomes(toText, {true, false, -7, 3.0, -0.0, 0.1, 1e15, 2.5e-7, -1234.5, 1234567.0}),
            "True|False|-7|3|0|0.1|1e+15|2.5e-07|-1234.5|1234567");
  EXPECT_EQ(outcomes(toText, {1e14, april30, "as it stands ", Null{}}),
            "100000000000000|2026-04-30|as it stands |" + nullFault);
  EXPECT_EQ(toText(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
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

}  // namespace
}  // namespace autonotify
