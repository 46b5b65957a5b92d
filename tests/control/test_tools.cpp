#include "component_host.h"

namespace autonotify::test {
namespace {

TEST_F(ComponentTest, ToolsEditEmailsAlone) {
  const auto tools = library.createTools();
  const Id entry = addSchedule(103, 1, clock.today(), {{"scheduleName", "GST Return"}});
  EXPECT_FALSE(tools->editEmailNotification(addNotification(entry, nt_Letter, clock.today())));
  const Id email = addNotification(entry, nt_Email, clock.today());
  EXPECT_FALSE(tools->editEmailNotification(email + 1));
  for (const char* button : {"cmdCancel", "cmdFinish"}) {
    screen.expectWindow("frmSendNotificationWizardEmail",
                        [&](WindowInUse& window) { window.click(button); });
    EXPECT_EQ(tools->editEmailNotification(email), button == std::string("cmdFinish"));
  }
}

TEST_F(ComponentTest, NoTemplateIsCarriedForAKindThatIsNotThere) {
  const Id entry = addSchedule(0, 0, clock.today());
  addNotification(entry, nt_Letter, clock.today());
  plainDatabase->connection().exec("UPDATE ClientNotification SET Memo='kept'");
  int looks = 0;
  library.createTools()->propagateTemplate(99, [&](int, int) { ++looks; });
  EXPECT_EQ(looks, 0);
}

}  // namespace
}  // namespace autonotify::test
