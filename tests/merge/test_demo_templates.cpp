#include <SQLiteCpp/SQLiteCpp.h>

#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"
#include "merge/MergeTest.h"

namespace autonotify::test {
namespace {

class DemoTemplates : public MergeTest, public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(DemoTemplates, HaveNoFault) {
  const auto [country, province] = GetParam();
  live(country, province);
  host::SqliteRowSink sink(plainDatabase->connection());
  host::DemoOptions options;
  options.companies = options.contacts = options.staff = 1;
  options.country = static_cast<countryCode>(country);
  options.province = static_cast<provinceCode>(province);
  makeDemoFirm(sink, options);
  merge->testErrorComment = [](const std::string& message) { ADD_FAILURE() << message; };
  SQLite::Statement templates(plainDatabase->connection(),
                              "SELECT NotificationComment FROM ScheduleTypes");
  int count = 0;
  for (build(8); templates.executeStep(); ++count) {
    const std::string text = templates.getColumn(0).getString();
    EXPECT_FALSE(merge->testRTBComment(text, true, true, false)) << text;
  }
  EXPECT_GT(count, 30);
}

INSTANTIATE_TEST_SUITE_P(Places, DemoTemplates,
                         testing::Values(std::pair{1, 3}, std::pair{1, 8}, std::pair{1, 10},
                                         std::pair{2, 3}));

}  // namespace
}  // namespace autonotify::test
