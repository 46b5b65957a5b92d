#include <SQLiteCpp/SQLiteCpp.h>

#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

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
  Value getFieldValue(RecordsetHandle h, std::string_view field) override {
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

TEST_F(HostTest, DefaultCommentReadsAsALetter) {
  addKind(101, 10, 5);
  const Id entry = addSchedule(101, 10, DateTime::of(2026, 4, 30),
                               {{"ClientNum", addClient("Acme Ltd.", "Jane Smith").clientNum},
                                {"PeriodDescription", "1st Quarter"},
                                {"InfoDeadlineDate", DateTime::of(2026, 4, 20)}});
  addTask(entry, "GST Return");
  const auto text = createHostObject<RichTextUtility>();
  expectGolden(AUTONOTIFY_TEST_FOLDER "default_letter.txt",
               replaceAll(text->toPlainText(generateClientAutoNotifyComment(entry)), "\r\n", "\n"));
}

class DemoFirm : public HostTest, public testing::WithParamInterface<provinceCode> {};
constexpr provinceCode abroad{-1};

TEST_P(DemoFirm, MergesEveryKindOfTaskWhole) {
  host::DemoOptions options;
  options.companies = options.contacts = 15;
  options.country = GetParam() == abroad ? countryUnitedStates : countryCanada;
  if (GetParam() != abroad) options.province = GetParam();
  plainLocale.settings().country = options.country;
  plainLocale.settings().province = options.province;
  host::SqliteRowSink sink(plainDatabase->connection());
  makeDemoFirm(sink, options);
  const auto richText = createHostObject<RichTextUtility>();
  SQLite::Statement entries(plainDatabase->connection(),
                            "SELECT MAX(ScheduleID) FROM Schedule GROUP BY TotalNum, ScheduleNum");
  int kinds = 0;
  for (; entries.executeStep(); ++kinds) {
    const std::string text = generateClientAutoNotifyComment(entries.getColumn(0).getInt());
    const std::string plain = richText->toPlainText(text);
    EXPECT_GT(plain.size(), 200u);
    for (const char* mark : {"\\'ab", "\\'bb"}) EXPECT_THAT(text, Not(HasSubstr(mark)));
    for (const char* mark : {"«", "»", "\\'"}) EXPECT_THAT(plain, Not(HasSubstr(mark)));
  }
  EXPECT_GT(kinds, 3);
}

INSTANTIATE_TEST_SUITE_P(Places, DemoFirm,
                         testing::Values(provinceAlberta, provinceBritishColumbia, provinceManitoba,
                                         provinceOntario, provinceSaskatchewan, provinceQuebec,
                                         provinceNovaScotia, provinceNewBrunswick,
                                         provinceNewfoundland, provincePrinceEdwardIsland, abroad));

}  // namespace
}  // namespace autonotify::test
