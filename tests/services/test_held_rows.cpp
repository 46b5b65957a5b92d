#include "host/exchange/HeldRows.h"

#include "support/HostTest.h"

namespace autonotify::host {
namespace {

class HeldRowsTest : public test::HostTest {
 protected:
  std::string name(Id id) {
    const Value* value = rows.find("Companies", id, "CompanyName");
    return value ? toText(*value) : "none";
  }

  HeldRows rows{database};
};

TEST_F(HeldRowsTest, NeighboursAreReadTogetherAndShowWhatBecomesOfThem) {
  for (const Id id : {1, 2, 200, 900})
    addRow("Companies", {{"CompanyID", id}, {"CompanyName", "c" + toText(id)}, {"City", "Hull"}});
  const auto asked = callsOf("openRecordset", [&] {
    EXPECT_EQ(name(1) + name(2) + name(3) + name(200) + name(900) + name(-1),
              "c1c2nonec200c900none");
  });
  EXPECT_EQ(asked.size(), 2U);
  EXPECT_EQ(toText(*rows.find("Companies", 2, "City")), "Hull");
  const Field changes[] = {{"CompanyName", "new"}, {"Phone", "1"}};
  rows.changed("Companies", 2, changes);
  rows.changed("Contacts", 2, changes);
  rows.release("Companies", 1);
  EXPECT_EQ(name(2) + name(1), "newnone");
  rows.clear();
  EXPECT_EQ(name(2) + name(1), "c2c1");
}

}  // namespace
}  // namespace autonotify::host
