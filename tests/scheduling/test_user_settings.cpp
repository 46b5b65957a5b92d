#include "settings/modUserSettings.h"
#include "support/HostTest.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

class UserSettings : public HostTest {};

TEST_F(UserSettings, FirstTouchMakesTheRowOnce) {
  EXPECT_EQ(getShowEmailPreview(100), 1);
  putShowMVPreview(true, 101);
  putShowEmailPreview(0, 102);
  for (const Id user : {100, 101, 102}) {
    EXPECT_FALSE(getCancelAutoNotification(user));
    EXPECT_EQ(getShowMVPreview(user), user == 101);
    EXPECT_EQ(getShowEmailPreview(user), user == 102 ? 0 : 1);
    EXPECT_EQ(rowCount("UserGeneralSettings WHERE UserIDNum=" + std::to_string(user)), 1);
  }
  EXPECT_FALSE(getAutoSendWizardConfirmation(noId));
  EXPECT_EQ(rowCount("UserGeneralSettings"), 3);
}

TEST_F(UserSettings, EachPersonHasTheirOwnAndEachSettingItsColumn) {
  addAllTold(*this, "scheduling_cases.txt", "settings of two people");
  EXPECT_TRUE(getAutoSendWizardConfirmation(7));
  EXPECT_FALSE(getCancelAutoNotification(7));
  EXPECT_FALSE(getAutoSendWizardConfirmation(8));
  EXPECT_TRUE(getCancelAutoNotification(8));
  for (const bool value : {false, true}) {
    EXPECT_THAT(columnsWrittenBy([&] { putShowMVPreview(value, 7); }),
                testing::ElementsAre(value ? "ShowMVPreview=True" : "ShowMVPreview=False"));
    EXPECT_EQ(getShowMVPreview(7), value);
    EXPECT_FALSE(getShowMVPreview(8));
  }
  putShowEmailPreview(0, 7);
  plainDatabase->connection().exec("UPDATE UserGeneralSettings SET ShowEmailPreview=NULL");
  EXPECT_EQ(getShowEmailPreview(7), 1);
}

}  // namespace
}  // namespace autonotify::test
