#include "scheduling/clsAutoNotifyTemplate.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

constexpr const char* newText =
    "{\\rtf1\\ansi For \\'abCompany Name\\'bb\\'abContact Display Name\\'bb, please.}";
constexpr DateTime day = DateTime::of(2026, 4, 23);

/// Notifications of two kinds of one family, of another family, of a contact, of nothing, and one
/// that was sent.
class Propagation : public HostTest {
 protected:
  Propagation() {
    const TestClient client = addClient("Acme Ltd.", "Jane Smith");
    const Id person = addRow("Contacts", {{"DisplayName", "Ann Roy"}});
    kindOne = addSchedule(103, 1, day, {{"ClientNum", client.clientNum}, {"ContactIDNum", person}});
    const Id kindTwo = addSchedule(103, 2, day, {{"ClientNum", client.clientNum}});
    const Id other = addSchedule(104, 1, day, {{"ClientNum", client.clientNum}});
    const Id personal = addSchedule(103, 1, day, {{"ContactIDNum", person}});
    for (const Id entry : {kindOne, kindTwo, other, personal}) addNotification(entry, 1, day);
    addNotification(kindOne, 2, day);
    addRow("ClientNotification", {{"NotificationType", 1}});
    plainDatabase->connection().exec(
        "UPDATE ClientNotification SET Memo='old', NotificationSent=(ClientNotificationID=5)");

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
  Id kindOne = noId;
  std::vector<std::string> events;
  int rowsDone = 0;
};

TEST_F(Propagation, RewritesTheUnsentTextsOfTheKind) {
  EXPECT_TRUE(kind.resetNotificationComments());
  EXPECT_EQ(rewritten(), "1|\n");
  EXPECT_THAT(events, ElementsAre("start5", "inc1", "inc2", "inc3", "inc4", "inc5"));
  EXPECT_EQ(dump("SELECT COUNT(*) FROM ClientNotification WHERE Memo='old'"), "5|\n");
}

TEST_F(Propagation, CoversTheWholeFamilyWithoutANumber) {
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
class GenerousDatabase : public CountedDatabase {
 public:
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
