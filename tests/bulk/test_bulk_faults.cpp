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

/// The company has a choice that is kept already.
void fillKeptOffice(TableRows rows) {
  fillOffice(rows);
  rows.addRow("ClientScheduleAutoNotifications", {{"CompanyIDNum", company}});
}
std::string writtenBesideOneChoice(TestHost& host) {
  EXPECT_EQ(host.rowCount("ClientScheduleAutoNotifications WHERE CompanyIDNum=1"), 1);
  return host.dumpWritten();
}

/// Only the contact has a task of the kind: how one is armed is the same for a company.
TEST(BulkFaults, AreSettledAtTheErrorDialog) {
  BulkChoice choice;
  choice[TaskFamily::PST] = true;
  choice.channels[1] = true;
  for (const auto client : {enumAutoNotifyCompany, enumAutoNotifyContact})
    EXPECT_GE(walkFaults(passFor("", client, choice), {fillKeptOffice, writtenBesideOneChoice}),
              300);
}

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
