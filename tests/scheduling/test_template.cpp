#include <gtest/gtest.h>

#include <functional>

#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/scheduling_fixture.h"

namespace autonotify::test {
namespace {

class Template : public SchedulingTest {
 protected:
  static Id addFullKind() {
    return addTestRow("ScheduleTypes", "ScheduleTypeID",
                      {{"ScheduleTypeNum", "3"},
                       {"TotalNum", "103"},
                       {"ScheduleNum", "2"},
                       {"ScheduleTypeName", "Sales tax"},
                       {"NotificationComment", "{\\rtf1 Hello}"},
                       {"NotificationPeriod", "-4"},
                       {"Locked", "True"},
                       {"CustomTaskSchemeIDNum", "77"}});
  }
  static void expectFullKind(clsAutoNotifyTemplate& kind, Id id) {
    EXPECT_EQ(kind.get_scheduleTypeID(), id);
    EXPECT_EQ(kind.get_ScheduleTypeNum(), 3);
    EXPECT_EQ(kind.get_customTaskSchemeIDNum(), 77);
    EXPECT_EQ(kind.get_totalNum(), 103);
    EXPECT_EQ(kind.get_ScheduleNum(), 2);
    EXPECT_EQ(kind.get_scheduleTypeName(), "Sales tax");
    EXPECT_EQ(kind.get_notificationComment(), "{\\rtf1 Hello}");
    EXPECT_EQ(kind.get_notificationPeriod(), -4);
    EXPECT_TRUE(kind.get_locked());
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
    clsAutoNotifyTemplate kind;
    kind.isSavedFlag = true;
    EXPECT_TRUE(open(kind));
    expectFullKind(kind, id);
    EXPECT_FALSE(kind.isSavedFlag);
    EXPECT_FALSE(kind.isDirtyFlag);
  }
}

TEST_F(Template, KeepsItsDefaultsWithoutARow) {
  clsAutoNotifyTemplate kind;
  EXPECT_FALSE(kind.findAndOpenScheduleTypeByCustomTaskSchemeIDNum(77));
  EXPECT_FALSE(kind.openWithTotalNumAndScheduleNum(103, 2, true));
  EXPECT_EQ(kind.get_scheduleTypeID(), noId);
  EXPECT_TRUE(kind.openExistingScheduleType(4711));
  EXPECT_EQ(kind.get_scheduleTypeID(), 4711);
  EXPECT_EQ(kind.get_totalNum(), 103);
  EXPECT_EQ(kind.get_ScheduleTypeNum(), -1);
  EXPECT_EQ(kind.get_notificationPeriod(), 15);
}

TEST_F(Template, OpensTheRowOfTheFamilyOnlyWhenAsked) {
  const Id family = addKind(103, -1, 9);
  const Id fallback = addKind(101, 10, 8);
  clsAutoNotifyTemplate kind;
  ASSERT_TRUE(kind.openWithTotalNumAndScheduleNum(103, 0, true));
  EXPECT_EQ(kind.get_scheduleTypeID(), family);
  ASSERT_TRUE(kind.openWithTotalNumAndScheduleNum(103, 0, false));
  EXPECT_EQ(kind.get_scheduleTypeID(), fallback);
  ASSERT_TRUE(kind.openWithTotalNumAndScheduleNum(0, 0, false));
  EXPECT_EQ(kind.get_scheduleTypeID(), fallback);
}

TEST_F(Template, EmptyColumnLeavesWhatWasThere) {
  const Id id = addTestRow("ScheduleTypes", "ScheduleTypeID", {{"TotalNum", "103"}});
  clsAutoNotifyTemplate kind;
  kind.put_totalNum(5);
  kind.put_ScheduleNum(6);
  kind.openExistingScheduleType(id);
  EXPECT_EQ(kind.get_totalNum(), 103);
  EXPECT_EQ(kind.get_ScheduleNum(), 6);
}

TEST_F(Template, EveryWriteOfADataPropertyMakesItDirty) {
  const std::function<void(clsAutoNotifyTemplate&)> writes[] = {
      [](auto& kind) { kind.put_scheduleTypeID(1); },
      [](auto& kind) { kind.put_ScheduleTypeNum(1); },
      [](auto& kind) { kind.put_customTaskSchemeIDNum(1); },
      [](auto& kind) { kind.put_totalNum(1); },
      [](auto& kind) { kind.put_ScheduleNum(1); },
      [](auto& kind) { kind.put_scheduleTypeName("a"); },
      [](auto& kind) { kind.put_notificationComment("a"); },
      [](auto& kind) { kind.put_notificationPeriod(1); },
      [](auto& kind) { kind.put_locked(true); },
      [](auto& kind) { kind.restoreNotificationComment(); }};
  for (const auto& write : writes) {
    clsAutoNotifyTemplate kind;
    kind.useUpperCaseStart = true;
    kind.get_notificationComment();
    EXPECT_FALSE(kind.isDirtyFlag);
    write(kind);
    EXPECT_TRUE(kind.isDirtyFlag);
    kind.resetAllValues();
    EXPECT_FALSE(kind.isDirtyFlag);
    EXPECT_TRUE(kind.useUpperCaseStart);
  }
}

TEST_F(Template, PeriodStaysWithinAYear) {
  struct Case {
    std::int16_t days;
    std::int16_t kept;
    int messages;
  };
  for (const Case& c : {Case{365, 365, 0}, Case{-365, -365, 0}, Case{0, 0, 0}, Case{366, 15, 1},
                        Case{-366, 15, 1}}) {
    clsAutoNotifyTemplate kind;
    std::vector<std::string> messages;
    kind.notificationDatePeriodError = [&](const std::string& text) { messages.push_back(text); };
    kind.put_notificationPeriod(7);
    kind.put_notificationPeriod(c.days);
    EXPECT_EQ(kind.get_notificationPeriod(), c.kept);
    EXPECT_EQ(messages,
              std::vector<std::string>(c.messages, "You must enter a number between -365 and 365"));
  }
}

TEST_F(Template, SavingAndOpeningGivesTheSame) {
  clsAutoNotifyTemplate original;
  original.openExistingScheduleType(addFullKind());
  original.put_scheduleTypeID(noId);
  const Id id = original.saveScheduleTypeInfo();
  EXPECT_TRUE(original.isSavedFlag);
  EXPECT_FALSE(original.isDirtyFlag);

  clsAutoNotifyTemplate reopened;
  reopened.openExistingScheduleType(id);
  expectFullKind(reopened, id);

  reopened.put_locked(false);
  reopened.put_notificationComment("changed");
  EXPECT_EQ(reopened.saveScheduleTypeInfo(), id);
  EXPECT_FALSE(toFlag(valueOf("ScheduleTypes", "Locked", "ScheduleTypeID=" + std::to_string(id))));
  EXPECT_EQ(rowCount("ScheduleTypes", "ScheduleTypeID>0"), 2);
}

TEST_F(Template, SavingARowThatHasGoneAddsOne) {
  clsAutoNotifyTemplate kind;
  kind.put_scheduleTypeID(4711);
  kind.put_totalNum(103);
  const Id id = kind.saveScheduleTypeInfo();
  EXPECT_NE(id, 4711);
  EXPECT_EQ(kind.get_scheduleTypeID(), id);
  EXPECT_EQ(rowCount("ScheduleTypes", "TotalNum=103"), 1);
}

TEST_F(Template, SavingWritesTheColumnsInOneOrder) {
  clsAutoNotifyTemplate kind;
  kind.openExistingScheduleType(addFullKind());
  EXPECT_EQ(columnsWrittenBy([&] { kind.saveScheduleTypeInfo(); }),
            (std::vector<std::string>{"ScheduleTypeNum=3", "CustomTaskSchemeIDNum=77",
                                      "TotalNum=103", "ScheduleNum=2", "ScheduleTypeName=Sales tax",
                                      "NotificationComment={\\rtf1 Hello}", "NotificationPeriod=-4",
                                      "Locked=True"}));
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

TEST_F(Template, ClosedDatabaseKeepsDefaultsAndSavesNothing) {
  const Id id = addFullKind();
  closeDatabase();
  clsAutoNotifyTemplate kind;
  EXPECT_FALSE(kind.openWithTotalNumAndScheduleNum(103, 2, false));
  EXPECT_TRUE(kind.openExistingScheduleType(id));
  EXPECT_EQ(kind.get_notificationPeriod(), 15);
  EXPECT_EQ(kind.saveScheduleTypeInfo(), id);
  EXPECT_TRUE(kind.isSavedFlag);
}

TEST_F(Template, CopyTakesAllButTheUpperCaseStart) {
  clsAutoNotifyTemplate original;
  const Id id = addFullKind();
  original.openExistingScheduleType(id);
  original.isSavedFlag = true;
  original.useUpperCaseStart = true;
  clsAutoNotifyTemplate copy;
  copy.copyConstructor(original);
  expectFullKind(copy, id);
  EXPECT_TRUE(copy.isSavedFlag);
  EXPECT_FALSE(copy.isDirtyFlag);
  EXPECT_FALSE(copy.useUpperCaseStart);
}

}  // namespace
}  // namespace autonotify::test
