#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "host/exchange/EntryKind.h"

namespace autonotify::host {
namespace {

TEST(EntryKindTest, NoTwoColumnsOfAKindShareASpelling) {
  std::string shared;
  for (const EntryKind& kind : entryKinds()) {
    std::map<std::string, const EntryColumn*> owners;
    for (const EntryColumn& column : kind.columns) {
      std::istringstream spellings(foldHeading(column.heading) + ' ' +
                                   std::string(column.spellings));
      for (std::string each; spellings >> each;) {
        EXPECT_EQ(foldHeading(each), each) << column.heading << ": it can never be met";
        if (!owners.emplace(each, &column).second) (shared += kind.name) += ' ' + each + '\n';
      }
    }
  }
  // Beside a kind, a task is its name.
  EXPECT_EQ(shared, "tasks task\n");
}

}  // namespace
}  // namespace autonotify::host
