#include <functional>

#include "settings/modUserSettings.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

class UserSettings : public HostTest {};

TEST_F(UserSettings, FirstTouchMakesTheRowOnce) {
  const std::function<void(Id)> touches[] = {
      [](Id user) { EXPECT_FALSE(getAutoSendWizardConfirmation(user)); },
      [](Id user) { EXPECT_FALSE(getCancelAutoNotification(user)); },
      [](Id user) { EXPECT_FALSE(getShowMVPreview(user)); },
      [](Id user) { EXPECT_EQ(getShowEmailPreview(user), 1); },
      [](Id user) { putShowMVPreview(true, user); },
      [](Id user) { putShowEmailPreview(0, user); }};
  Id user = 100;
  for (const auto& touch : touches) {
    touch(++user);
    getShowMVPreview(user);
    EXPECT_EQ(rowCount("UserGeneralSettings", "UserIDNum=" + std::to_string(user)), 1);
  }
  EXPECT_TRUE(getShowMVPreview(105)) << "written with the row";
  EXPECT_EQ(getShowEmailPreview(106), 0);
}

TEST_F(UserSettings, EachPersonHasTheirOwnAndEachSettingItsColumn) {
  addRow("UserGeneralSettings",
         {{"UserIDNum", 7}, {"WarningMessagesExitAutomaticNotificationWarning", "True"}});
  addRow("UserGeneralSettings",
         {{"UserIDNum", 8}, {"WarningMessagesCancelAutoNotificationWarning", "True"}});
  EXPECT_TRUE(getAutoSendWizardConfirmation(7));
  EXPECT_FALSE(getCancelAutoNotification(7));
  EXPECT_FALSE(getAutoSendWizardConfirmation(8));
  EXPECT_TRUE(getCancelAutoNotification(8));
  for (const bool value : {false, true}) {
    putShowMVPreview(value, 7);
    EXPECT_EQ(getShowMVPreview(7), value);
    EXPECT_FALSE(getShowMVPreview(8));
  }
  putShowEmailPreview(0, 7);
  closeDatabase();
  EXPECT_FALSE(getShowMVPreview(7));
  EXPECT_EQ(getShowEmailPreview(7), 1);
  openDatabase();
  plainDatabase->connection().exec("UPDATE UserGeneralSettings SET ShowEmailPreview=NULL");
  EXPECT_EQ(getShowEmailPreview(7), 1);
}

}  // namespace
}  // namespace autonotify::test
