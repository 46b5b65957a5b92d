#include "BulkOffice.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

/// The same, with tasks that are armed, so that none is composed.
void fillArmedOffice(TableRows rows) {
  fillOffice(rows);
  for (const auto& [link, owner] : {std::pair{"ClientNum", 2}, {"ContactIDNum", contact}}) {
    const Id task = taskOf(rows, 109, {{link, owner}, {"notifyType", 15}});
    for (const notifyType channel : allNotifyTypes) rows.addNotification(task, channel, dueDate);
  }
}

/// A year that cannot be told keeps the person from Finish.
WalkedOperation passFor(const char* name, enumAutoNotifyClientType type, BulkChoice choice) {
  return {name, [=](TestHost& host) {
            host.screen.answerAll(true);
            Bulk panel;
            panel.Initialize(type, 1, 1);
            panel.choice = choice;
            const bool skipped = show(host, panel, [](WindowInUse& window) {
              pressFinish(window);
              if (window.form().isVisible()) window.closeBox();
            });
            panel.saveNotificationsTypes();
            panel.unload();
            return std::string(skipped ? "skipped" : "");
          }};
}

class BulkFaults : public testing::TestWithParam<enumAutoNotifyClientType> {};

TEST_P(BulkFaults, AreSettledAtTheErrorDialog) {
  BulkChoice one;
  one[TaskFamily::GST] = one[TaskFamily::PST] = true;
  one.channels[1] = true;
  EXPECT_GE(walkFaults(passFor("", GetParam(), one), {fillOffice}), 300);
}
INSTANTIATE_TEST_SUITE_P(All, BulkFaults,
                         testing::Values(enumAutoNotifyCompany, enumAutoNotifyContact));

TEST(BulkStatements, AreThoseThatHostsKnow) {
  BulkChoice all;
  all[TaskFamily::Other] = true;
  all.channels.fill(true);
  expectStatements(std::array{passFor("company", enumAutoNotifyCompany, all),
                              passFor("contact", enumAutoNotifyContact, all)},
                   fillArmedOffice, AUTONOTIFY_TEST_FOLDER "bulk_statements.txt");
}

}  // namespace
}  // namespace autonotify::test
