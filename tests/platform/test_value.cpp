#include <gtest/gtest.h>
#include <sys/resource.h>

#include <new>
#include <string>

#include "platform/PlatformError.h"
#include "platform/Value.h"
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

}  // namespace
}  // namespace autonotify
