
#include "scheduling/clsAutoNotifyTemplate.h"
#include "support/HostTest.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

class Template : public HostTest {
 protected:
  Id addFullKind() { return addTold(*this, rowsOf("scheduling_cases.txt", "a full kind", 9)[0]); }
  /// All that a kind tells but its comment.
  static std::string told(clsAutoNotifyTemplate& kind) {
    std::string all;
    for (const Id each : {kind.get_scheduleTypeID(), Id{kind.get_ScheduleTypeNum()},
                          kind.get_customTaskSchemeIDNum(), kind.get_totalNum(),
                          kind.get_ScheduleNum(), Id{kind.get_notificationPeriod()}})
      all += std::to_string(each) + " ";
    return all + (kind.get_locked() ? "locked " : "") + kind.get_scheduleTypeName();
  }
  static void expectFullKind(clsAutoNotifyTemplate& kind, Id id) {
    EXPECT_EQ(told(kind), std::to_string(id) + " 3 77 103 2 -4 locked Sales tax");
    EXPECT_EQ(kind.get_notificationComment(), "{\\rtf1 Hello}");
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
  EXPECT_EQ(told(kind), "4711 -1 0 103 2 15 ");
  EXPECT_TRUE(kind.openExistingScheduleType(addFullKind()));
  EXPECT_TRUE(kind.openExistingScheduleType(4711));
  EXPECT_EQ(told(kind), "4711 -1 77 103 2 15 ");
  EXPECT_EQ(kind.get_notificationComment(), kind.getDefaultNotificationComment());
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
  for (const auto& [days, kept] :
       {std::pair{365, 365}, {-365, -365}, {0, 0}, {366, 15}, {-366, 15}}) {
    clsAutoNotifyTemplate kind;
    std::string message;
    kind.notificationDatePeriodError = [&](const std::string& text) { message += text; };
    kind.put_notificationPeriod(7);
    kind.put_notificationPeriod(static_cast<std::int16_t>(days));
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

constexpr const char* newText =
    "{\\rtf1\\ansi For \\'abCompany Name\\'bb\\'abContact Display Name\\'bb, please.}";
constexpr DateTime day = DateTime::of(2026, 4, 23);

/// Notifications of two kinds of a family, of another, of a contact, of nothing, and a sent one.
class Propagation : public HostTest {
 protected:
  Propagation() {
    addAllTold(*this, "scheduling_cases.txt", "propagation");
    kind.put_totalNum(103);
    kind.put_ScheduleNum(1);
    kind.put_notificationComment(newText);
    kind.startResetNotificationComments = [this](int rows) { log("start", rows); };
    kind.incResetNotificationComments = [this] { log("inc", ++rowsDone); };
    kind.endResetNotificationComments = [this] { log("end", 0); };
    kind.startResetNotificationDates = kind.startResetNotificationComments;
    kind.incResetNotificationDates = kind.incResetNotificationComments;
    kind.endResetNotificationDates = kind.endResetNotificationComments;
  }

  void log(const char* event, int number) { events.push_back(event + std::to_string(number)); }
  /// The ids of the notifications whose text was composed anew.
  std::string rewritten() {
    return dump(
        "SELECT ClientNotificationID FROM ClientNotification WHERE Memo LIKE '%Ltd. , please%'");
  }

  clsAutoNotifyTemplate kind;
  static constexpr Id kindOne = 1;
  std::vector<std::string> events;
  int rowsDone = 0;
};

TEST_F(Propagation, RewritesTheUnsentTextsOfTheKindOrOfItsWholeFamily) {
  EXPECT_TRUE(kind.resetNotificationComments());
  EXPECT_EQ(rewritten(), "1|\n");
  EXPECT_THAT(events, ElementsAre("start5", "inc1", "inc2", "inc3", "inc4", "inc5"));
  EXPECT_EQ(dump("SELECT COUNT(*) FROM ClientNotification WHERE Memo='old'"), "5|\n");
  kind.put_ScheduleNum(-1);
  EXPECT_TRUE(kind.resetNotificationComments());
  EXPECT_EQ(rewritten(), "1|\n2|\n");
}

TEST_F(Propagation, OfDatesFailsQuietly) {
  const std::string before = dumpWritten();
  // Going on, the due date and the notifications' number are missed once for each of two entries.
  errors.answer({1, 1, 1, 1});
  EXPECT_THAT(statementsOf([&] { EXPECT_TRUE(kind.resetNotificationDates()); }),
              ElementsAre("1,3 SELECT Schedule.ScheduleID, Schedule.TotalNum, "
                          "Schedule.ScheduleNum FROM Schedule WHERE totalNum = 103 AND "
                          "scheduleNum = 1;",
                          "1,3 SELECT ClientNotification.* FROM ClientNotification;"));
  EXPECT_THAT(events, ElementsAre("start2", "inc1", "inc2", "end0"));
  errors.answer({2, 3, 77, 2});
  EXPECT_TRUE(kind.resetNotificationDates());
  EXPECT_TRUE(kind.resetNotificationDates());
  closeDatabase();
  events.clear();
  EXPECT_TRUE(kind.resetNotificationDates());
  EXPECT_THAT(events, ElementsAre("end0"));
  EXPECT_EQ(dumpWritten(), before);
}

/// A host whose engine knows the columns that the reset of dates asks for.
struct GenerousDatabase : CountedDatabase {
  using CountedDatabase::CountedDatabase;
  Value getFieldValue(RecordsetHandle h, const std::string& field) override {
    return field == "DueDate" ? Value(day) : CountedDatabase::getFieldValue(h, field);
  }
  bool findRecord(RecordsetHandle h, const std::string&, const std::string& value,
                  const std::string& r1, const std::string& r2, const std::string& r3,
                  const std::string& r4) override {
    return CountedDatabase::findRecord(h, "ScheduleIDNum", value, r1, r2, r3, r4);
  }
};

TEST_F(Propagation, OfDatesMovesWhatIsUnsentWhereTheEngineGoesAlong) {
  GenerousDatabase generous(*plainDatabase, calls);
  references().databaseReference = &generous;
  addNotification(kindOne, 8, day);
  kind.put_notificationPeriod(3);
  kind.resetNotificationDates();
  EXPECT_EQ(dump("SELECT ClientNotificationID FROM ClientNotification WHERE NotificationDate='" +
                 dateTimeText(day.addDays(-3)) + "'"),
            "1|\n4|\n7|\n");
}

}  // namespace
}  // namespace autonotify::test
