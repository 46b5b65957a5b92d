#include "merge/fields/field_format.h"
#include "platform/date_time_text.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using FieldFormat = HostTest;

TEST_F(FieldFormat, PrintsEachTypeInItsForm) {
  const DateTime moment = DateTime::of(2026, 4, 30, 14, 5);
  const struct {
    FieldType type;
    Value value;
    const char* text;  ///< null: the value's text form
    const char* format = "";
  } cases[] = {
      {FieldType::date, moment, "Apr 30, 2026"},
      {FieldType::date, moment, "Thursday, April 30 2026", "dddd, mmmm d yyyy"},
      {FieldType::date, DateTime::of(1900, 1, 1), "1900", "yyyy"},
      {FieldType::date, DateTime::of(1899, 12, 31), nullptr, "yyyy"},
      {FieldType::time, moment, "2:05 pm"},
      {FieldType::currency, 1234.5, "$1,234.50"},
      {FieldType::currency, -3, "$-3.00"},
      {FieldType::currency, 0, "$0.00"},
      {FieldType::yesNo, true, "Yes"},
      {FieldType::yesNo, 0, "No"},
      {FieldType::duration, 1.5, "1 hr 30 min"},
      {FieldType::duration, 0.5167, "31 min"},
      {FieldType::text, moment, nullptr},
      {FieldType::documentsList, "a", nullptr},
      {static_cast<FieldType>(0), "a", nullptr},
  };
  for (const auto& [type, value, text, format] : cases)
    EXPECT_EQ(formattedField(value, type, format).value_or("none"), text ? text : "none")
        << toText(value);
  EXPECT_THROW(formattedField("Bookkeeping", FieldType::date, ""), PlatformError);
}

}  // namespace
}  // namespace autonotify::test
