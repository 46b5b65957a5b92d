#include "merge/fields/field_format.h"

#include <map>

#include "merge/MergeTest.h"
#include "support/value_cells.h"

namespace autonotify::test {
namespace {

using FieldFormat = HostTest;

TEST_F(FieldFormat, PrintsEachTypeInItsForm) {
  const std::map<std::string, FieldType> types = {
      {"date", FieldType::date},         {"time", FieldType::time},
      {"currency", FieldType::currency}, {"yes or no", FieldType::yesNo},
      {"duration", FieldType::duration}, {"text", FieldType::text},
      {"no type", FieldType{}},          {"documents", FieldType::documentsList}};
  for (const auto& row : rowsOf("values of fields", 4))
    EXPECT_EQ(formattedField(valueOfCell(row[1]), types.at(row[0]), row[2]).value_or("none"),
              row[3])
        << row[0] << ' ' << row[1];
  EXPECT_THROW(formattedField("Bookkeeping", FieldType::date, ""), PlatformError);
}

}  // namespace
}  // namespace autonotify::test
