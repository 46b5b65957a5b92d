#include <functional>

#include "scheduling/clsAutoNotifyTemplate.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

class Template : public HostTest {
 protected:
  Id addFullKind() {
    return addRow("ScheduleTypes", {{"ScheduleTypeNum", 3},
                                    {"TotalNum", 103},
                                    {"ScheduleNum", 2},
                                    {"ScheduleTypeName", "Sales tax"},
                                    {"NotificationComment", "{\\rtf1 Hello}"},
                                    {"NotificationPeriod", -4},
                                    {"Locked", "True"},
                                    {"CustomTaskSchemeIDNum", 77}});
  }
  static void expectFullKind(clsAutoNotifyTemplate& kind, Id id) {
    EXPECT_EQ(std::tuple(kind.get_scheduleTypeID(), kind.get_ScheduleTypeNum(),
                         kind.get_customTaskSchemeIDNum(), kind.get_totalNum(),
                         kind.get_ScheduleNum(), kind.get_notificationPeriod(), kind.get_locked()),
              std::tuple(id, 3, 77, 103, 2, -4, true));
    EXPECT_EQ(kind.get_scheduleTypeName() + kind.get_notificationComment(),
              "Sales tax{\\rtf1 Hello}");
  }
};

TEST_F(Template, OpensARowByIdKindOrScheme) {
  const Id id = addFullKind();
  const std::function<bool(clsAutoNotifyTemplate&)> openings[] = {
      [&](auto& kind) { return kind.openExistingScheduleType(id); },
      [&](auto& kind) { return kind.openWithTotalNumAndScheduleNum(103, 2, false); },
      [&](auto& kind) { return kind.openWithTotalNumAndScheduleNum(103, 0, false); },
      [&](auto& kind) { return kind.findAndOpenScheduleTypeByCustomTaskSchemeIDNum(77); }};
  for (const auto& open : openings) {
    clsAutoNotifyTemplate kind, copy;
    kind.isSavedFlag = true;
    EXPECT_TRUE(open(kind));
    expectFullKind(kind, id);
    EXPECT_FALSE(kind.isSavedFlag);
    EXPECT_FALSE(kind.isDirtyFlag);
    kind.useUpperCaseStart = kind.isSavedFlag = kind.isDirtyFlag = true;
    copy.copyConstructor(kind);
    expectFullKind(copy, id);
    EXPECT_TRUE(copy.isSavedFlag && copy.isDirtyFlag);
    EXPECT_FALSE(copy.useUpperCaseStart) << "all else is copied";
  }
}

TEST_F(Template, KeepsWhatItHasWithoutARowOrAnEmptyColumn) {
  clsAutoNotifyTemplate kind;
  EXPECT_FALSE(kind.findAndOpenScheduleTypeByCustomTaskSchemeIDNum(77));
  EXPECT_FALSE(kind.openWithTotalNumAndScheduleNum(103, 2, true));
  EXPECT_EQ(kind.get_scheduleTypeID(), noId);
  EXPECT_TRUE(kind.openExistingScheduleType(4711));
  EXPECT_EQ(kind.get_scheduleTypeID(), 4711);
  EXPECT_EQ(kind.get_totalNum(), 103);
  EXPECT_EQ(kind.get_notificationPeriod(), 15);
  EXPECT_TRUE(kind.openExistingScheduleType(addFullKind()));
  EXPECT_TRUE(kind.openExistingScheduleType(4711));
  EXPECT_EQ(kind.get_ScheduleTypeNum(), -1);
  EXPECT_EQ(kind.get_customTaskSchemeIDNum(), 77);
  EXPECT_EQ(kind.get_ScheduleNum(), 2);
  EXPECT_EQ(kind.get_scheduleTypeName(), "");
  EXPECT_EQ(kind.get_notificationComment(), kind.getDefaultNotificationComment());
  EXPECT_EQ(kind.get_notificationPeriod(), 15);
  EXPECT_FALSE(kind.get_locked());
  kind.openExistingScheduleType(addRow("ScheduleTypes", {{"TotalNum", 105}}));
  EXPECT_EQ(kind.get_totalNum(), 105);
}

TEST_F(Template, OpensTheRowOfTheFamilyOnlyWhenAsked) {
  const Id family = addKind(103, -1, 9), fallback = addKind(101, 10, 8);
  for (const bool exactOnly : {true, false}) {
    clsAutoNotifyTemplate kind;
    EXPECT_TRUE(kind.openWithTotalNumAndScheduleNum(103, 0, exactOnly));
    EXPECT_EQ(kind.get_scheduleTypeID(), exactOnly ? family : fallback);
  }
}

TEST_F(Template, EveryWriteMakesItDirtyUntilItIsReset) {
  clsAutoNotifyTemplate kind;
  kind.useUpperCaseStart = true;
  for (const bool restores : {false, true}) {
    restores ? kind.restoreNotificationComment() : kind.put_totalNum(kind.get_totalNum());
    EXPECT_TRUE(kind.isDirtyFlag);
    kind.resetAllValues();
    EXPECT_FALSE(kind.isDirtyFlag);
    EXPECT_TRUE(kind.useUpperCaseStart);
  }
}

TEST_F(Template, PeriodStaysWithinAYear) {
  const std::pair<std::int16_t, std::int16_t> cases[] = {
      {365, 365}, {-365, -365}, {0, 0}, {366, 15}, {-366, 15}};
  for (const auto& [days, kept] : cases) {
    clsAutoNotifyTemplate kind;
    std::string message;
    kind.notificationDatePeriodError = [&](const std::string& text) { message += text; };
    kind.put_notificationPeriod(7);
    kind.put_notificationPeriod(days);
    EXPECT_EQ(kind.get_notificationPeriod(), kept);
    EXPECT_EQ(message, days == kept ? "" : "You must enter a number between -365 and 365");
  }
}

TEST_F(Template, SavingAndOpeningGivesTheSame) {
  clsAutoNotifyTemplate original;
  original.openExistingScheduleType(addFullKind());
  for (const bool locked : {false, true}) {
    original.put_locked(locked);
    const auto written = columnsWrittenBy([&] { original.saveScheduleTypeInfo(); });
    EXPECT_EQ(written.back(), locked ? "Locked=True" : "Locked=0");
  }
  for (const Id absent : {noId, Id{4711}}) {
    original.put_scheduleTypeID(absent);
    const Id id = original.saveScheduleTypeInfo();
    EXPECT_NE(id, absent) << "a row that is not there, or has gone, is added";
    EXPECT_TRUE(original.isSavedFlag);
    EXPECT_FALSE(original.isDirtyFlag);
    clsAutoNotifyTemplate reopened;
    reopened.openExistingScheduleType(id);
    expectFullKind(reopened, id);
  }
  EXPECT_EQ(rowCount("ScheduleTypes"), 3);
}

TEST_F(Template, EmptyCommentShowsAndSavesTheDefault) {
  clsAutoNotifyTemplate kind;
  kind.openExistingScheduleType(addKind(103, 1, 1));
  kind.saveScheduleTypeInfo();
  EXPECT_FALSE(kind.isDirtyFlag);
  const std::string saved = toText(valueOf("ScheduleTypes", "NotificationComment", "TotalNum=103"));
  EXPECT_EQ(saved, kind.getDefaultNotificationComment());
  EXPECT_EQ(kind.get_notificationComment(), saved);
  EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 15);
  EXPECT_EQ(std::count(saved.begin(), saved.end(), '\r'), 15);
  EXPECT_TRUE(saved.ends_with("\\par\r\n}"));
}

}  // namespace
}  // namespace autonotify::test
