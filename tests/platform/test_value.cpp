#include <gtest/gtest.h>

#include <limits>
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

struct Case {
  Value value;
  std::string expected;
};

template <class Convert>
void check(Convert convert, const std::vector<Case>& cases) {
  for (std::size_t i = 0; i < cases.size(); ++i)
    EXPECT_EQ(outcome(convert, cases[i].value), cases[i].expected) << "case " << i;
}

TEST(Value, becomesInteger) {
  check(toInteger, {
                       {Null{}, nullFault},
                       {true, "-1"},
                       {false, "0"},
                       {std::int64_t{2147483647}, "2147483647"},
                       {std::int64_t{2147483648}, overflowFault},
                       {std::int64_t{-2147483648}, "-2147483648"},
                       {std::int64_t{-2147483649}, overflowFault},
                       {std::numeric_limits<std::int64_t>::min(), overflowFault},
                       {2147483647.5, overflowFault},
                       {-2147483648.5, "-2147483648"},
                       {1e300, overflowFault},
                       {infinity, overflowFault},
                       {notANumber, overflowFault},
                       {april30, "46142"},
                       {april30Noon, "46142"},
                   });
}

TEST(Value, roundsHalvesToEven) {
  check(toInteger, {{0.5, "0"},
                    {1.5, "2"},
                    {2.5, "2"},
                    {-0.5, "0"},
                    {-1.5, "-2"},
                    {-2.5, "-2"},
                    {2.5000001, "3"},
                    {"2.5", "2"},
                    {"3.5", "4"},
                    {"-2.5", "-2"}});
}

TEST(Value, readsTextAsOneDecimalNumber) {
  check(toDouble, {
                      {"12", "12"},
                      {"  12 ", "12"},
                      {"+12", "12"},
                      {"-12", "-12"},
                      {".5", "0.5"},
                      {"5.", "5"},
                      {"1e3", "1000"},
                      {"-1.25E-2", "-0.0125"},
                      {"007", "7"},
                      {"", typeFault},
                      {"   ", typeFault},
                      {"12abc", typeFault},
                      {"0x1F", typeFault},
                      {"1 2", typeFault},
                      {"1,000", typeFault},
                      {"+-1", typeFault},
                      {"--1", typeFault},
                      {"-", typeFault},
                      {".", typeFault},
                      {"1e", typeFault},
                      {"nan", typeFault},
                      {"inf", typeFault},
                      {"-infinity", typeFault},
                      {"True", typeFault},
                      {"2026-04-30", typeFault},
                      {"12\n", typeFault},
                      {"1e999", overflowFault},
                      {std::string("1\0", 2), typeFault},
                  });
  check(toInteger, {{"2147483648", overflowFault}, {" -2147483648", "-2147483648"}});
}

TEST(Value, tellsNumericTexts) {
  for (const char* text : {"0", " 42 ", "-1.5", "1e3", "1e999"})
    EXPECT_TRUE(isNumeric(text)) << text;
  for (const char* text : {"", " ", "12abc", "nan", "inf", "1,5", "&H1F", "1-2"})
    EXPECT_FALSE(isNumeric(text)) << text;
}

TEST(Value, becomesInteger16) {
  check(toInteger16, {{32767, "32767"},
                      {32768, overflowFault},
                      {-32768, "-32768"},
                      {-32769, overflowFault},
                      {32767.4, "32767"},
                      {april30, overflowFault},
                      {Null{}, nullFault},
                      {"x", typeFault}});
}

TEST(Value, becomesFlag) {
  check(toFlag, {{Null{}, nullFault},
                 {0, "False"},
                 {-1, "True"},
                 {0.25, "True"},
                 {"True", "True"},
                 {" fALSE ", "False"},
                 {"0", "False"},
                 {"2", "True"},
                 {"yes", typeFault},
                 {"", typeFault},
                 {DateTime{}, "False"},
                 {april30, "True"}});
}

TEST(Value, becomesDateTime) {
  check(toDateTime, {
                        {Null{}, nullFault},
                        {april30Noon, "2026-04-30 12:00:00"},
                        {46142, "2026-04-30"},
                        {46142.5, "2026-04-30 12:00:00"},
                        {0, "1899-12-30"},
                        {-1.25, "1899-12-29 06:00:00"},
                        {"April 30, 2026", "2026-04-30"},
                        {"46142", typeFault},
                        {"", typeFault},
                        {true, "1899-12-29"},
                        {2958465, "9999-12-31"},
                        {2958466, overflowFault},
                        {2958465.9999999, overflowFault},
                        {-657434, "0100-01-01"},
                        {-657435, overflowFault},
                        {notANumber, overflowFault},
                        {infinity, overflowFault},
                        {46141.99999999, "2026-04-30"},
                    });
}

TEST(Value, becomesText) {
  check(toText, {
                    {Null{}, nullFault},
                    {true, "True"},
                    {false, "False"},
                    {-7, "-7"},
                    {"as it stands ", "as it stands "},
                    {std::numeric_limits<std::int64_t>::max(), "9223372036854775807"},
                    {3.0, "3"},
                    {-0.0, "0"},
                    {0.1, "0.1"},
                    {1234567.0, "1234567"},
                    {1e14, "100000000000000"},
                    {1e15, "1e+15"},
                    {2.5e-7, "2.5e-07"},
                    {-1234.5, "-1234.5"},
                    {april30, "2026-04-30"},
                });
}

TEST(Value, serialAndMomentAreInverse) {
  for (const std::int32_t days : {-657434, -36000, -2, -1, 0, 1, 46142, 2958465}) {
    for (std::int32_t second = 0; second < 86400; second += 97) {
      const DateTime moment = DateTime::fromSerial(days, second);
      ASSERT_EQ(toDateTime(Value(toDouble(moment))), moment) << days << ' ' << second;
    }
  }
}

TEST(Value, everyNumberReadsBackFromItsText) {
  for (const double number :
       {0.1, 1.0 / 3, 2.675, 1e15, 123456789.123, 5e-324, 1.7976931348623157e308})
    EXPECT_EQ(toDouble(Value(toText(number))), number);
}

TEST(Value, comparesWithoutConversion) {
  EXPECT_EQ(Value(1), Value(std::int64_t{1}));
  EXPECT_NE(Value(1), Value(1.0));
  EXPECT_NE(Value(1), Value("1"));
  EXPECT_NE(Value(-1), Value(true));
  EXPECT_EQ(Value(), Value(Null{}));
}

}  // namespace
}  // namespace autonotify
