#include <algorithm>
#include <array>

#include "contract/AutoNotifyListForm.h"
#include "contract/recordsets.h"
#include "store/modNotifyClients.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Status : public HostTest {
 protected:
  Id addEntry(int bits, Id clientNum = noId) {
    return addRow("Schedule", {{"notifyType", bits}, {"ClientNum", clientNum}});
  }
  /// Whether sent, the status and the time of a row.
  std::string stateOf(Id row) {
    return dump(
        "SELECT NotificationSent, NotificationSentStatus, SentTime FROM ClientNotification WHERE "
        "ClientNotificationID=" +
        std::to_string(row));
  }
};

TEST(ChannelBits, NameIsThatOfTheLowestBit) {
  const char* names[] = {"None",  "Email", "Fax",   "Email", "Letter",
                         "Email", "Fax",   "Email", "Phone"};
  for (std::uint8_t bits = 0; bits <= 8; ++bits) {
    EXPECT_EQ(getNotificationTypeNameFromNotificationTypeNum(bits), names[bits]);
  }
  EXPECT_EQ(getNotificationTypeNameFromNotificationTypeNum(240), "Unknown");
}

TEST_F(Status, ChangeOfABitWritesStampAndSumOrNothing) {
  struct Case {
    int before, channel, change, after;
  };
  const Case cases[] = {{0, 1, nt_AddStatus, 1},
                        {2, 1, nt_AddStatus, 3},
                        {1, 1, nt_AddStatus, 1},
                        {7, 8, nt_AddStatus, 15},
                        {16, 4, nt_AddStatus, 20},
                        {0, 3, nt_AddStatus, 0},
                        {3, 1, nt_RemoveStatus, 2},
                        {15, 8, nt_RemoveStatus, 7},
                        {2, 1, nt_RemoveStatus, 2},
                        {3, 3, nt_RemoveStatus, 3},
                        {12, 4, 7, 8},
                        {8, 16, nt_AddStatus, 8}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.before << " " << c.channel << " " << c.change);
    const Id entry = addEntry(c.before);
    const auto written = columnsWrittenBy([&] {
      EXPECT_TRUE(changeNotificationStatus(static_cast<notifyType>(c.channel),
                                           static_cast<changeStatus>(c.change), entry));
    });
    std::vector<std::string> expected{"ScheduleModifiedStamp=" + nowText(),
                                      "notifyType=" + std::to_string(c.after)};
    if (c.before == c.after) expected.clear();
    EXPECT_EQ(written, expected);
  }
  EXPECT_FALSE(changeNotificationStatus(nt_Email, nt_AddStatus, 999));
}

TEST_F(Status, HealsABitWithoutARow) {
  const Id entry = addEntry(1 + 2);
  addNotification(entry, nt_Email, today());
  calls.record(true);
  EXPECT_TRUE(getNotificationStatus(entry, nt_Email));
  EXPECT_FALSE(getNotificationStatus(entry, nt_Letter));
  EXPECT_FALSE(getNotificationStatus(entry, static_cast<notifyType>(3)));
  EXPECT_FALSE(getNotificationStatus(999, nt_Email));
  EXPECT_THAT(logged("updateFieldValue"), IsEmpty());
  EXPECT_THAT(columnsWrittenBy([&] { EXPECT_FALSE(getNotificationStatus(entry, nt_Fax)); }),
              ElementsAre("ScheduleModifiedStamp=" + nowText(), "notifyType=1"));

  const Id null = addRow("Schedule", {{"scheduleName", "T2"}});
  EXPECT_TRUE(changeNotificationStatus(nt_Fax, nt_AddStatus, null));
  EXPECT_EQ(rowCount("Schedule", "notifyType=2"), 1);
}

TEST_F(Status, NotificationIdIsTheFirstRowOfTheChannel) {
  const Id entry = addEntry(0);
  addNotification(noId, nt_Fax, today());
  const Id first = addNotification(entry, nt_Fax, today());
  addNotification(entry, nt_Fax, today());
  EXPECT_THAT(statementsOf([&] { EXPECT_EQ(getNotificationID(entry, nt_Fax), first); }),
              ElementsAre("1,1 SELECT ClientNotification.* FROM ClientNotification WHERE "
                          "ScheduleIDNum = " +
                          std::to_string(entry) + " AND NotificationType = 2;"));
  EXPECT_EQ(getNotificationID(entry, nt_Letter), noId);
  EXPECT_EQ(getNotificationID(noId, nt_Fax), noId) << "no entry is not the entry of others";
}

TEST_F(Status, UnsentNotificationsCountUpToMidnightOfToday) {
  const DateTime day = today();
  const std::pair<DateTime, int> cases[] = {{day.addDays(1), 0},
                                            {DateTime::fromSerial(day.days(), 36000), 0},
                                            {day, 1},
                                            {day.addDays(-9), 2}};
  addNotification(noId, nt_Email, day, true);
  for (const auto& [date, count] : cases) {
    addNotification(noId, nt_Email, date);
    EXPECT_EQ(getNumberOfUnsentNotifications(), count);
    EXPECT_EQ(needToSendAutoNotificationsToday(), count > 0);
  }
  EXPECT_THAT(statementsOf(getNumberOfUnsentNotifications),
              ElementsAre("1,1 SELECT ClientNotification.NotificationSent, "
                          "ClientNotification.NotificationDate FROM ClientNotification WHERE "
                          "ClientNotification.NotificationDate <= #" +
                          plainDatabase->formatDateForSQL(day) +
                          "# AND ClientNotification.NotificationSent=False ORDER BY "
                          "NotificationSent, NotificationDate;"));
}

TEST_F(Status, PersonInChargeComesFromTheFirstItem) {
  const Id ann = addRow("AccountantEmployeeInfo", {{"DisplayName", "Ann"}});
  const Id entry = addRow("Schedule", {{"EmployeeAssigned", "Bo"}});
  const Id bare = addEntry(0);
  const Id task = addRow("Tasks", {{"UserIDNum", ann}});
  const Id docket = addRow("Dockets", {{"UserIDNum", ann}});
  const Id idle = addRow("Appointments", {{"Subject", "x"}});
  const std::pair<std::array<Id, 4>, const char*> cases[] = {
      {{entry, task, idle, docket}, "Bo"}, {{bare, task, idle, docket}, "None Assigned"},
      {{-1, task, idle, docket}, "Ann"},   {{-1, -1, idle, docket}, "None Assigned"},
      {{-1, -1, -1, docket}, "Ann"},       {{-5, 0, -1, docket}, "None Assigned"}};
  for (const auto& [id, name] : cases) {
    EXPECT_EQ(getNotificationEmployeeAssignedFromNotificationIDs(id[0], id[1], id[2], id[3]), name);
  }
}

TEST_F(Status, SentThenSentAgainThenCancelledThenMoved) {
  const Id row = addNotification(addEntry(1), nt_Email, today());
  const DateTime noon = DateTime::fromSerial(today().days(), 43200);
  const std::string stamp = "ClientNotificationModifiedStamp=" + nowText();
  EXPECT_EQ(stateOf(row), "0|1|NULL|\n");
  EXPECT_THAT(columnsWrittenBy([&] { changeNotificationToSent(row, noon, false); }),
              ElementsAre(stamp, "NotificationSent=True", "NotificationSentStatus=2",
                          "SentByUserIDNum=7", "SentTime=" + toText(noon)));
  const std::string sent = stateOf(row);
  changeNotificationToSent(row, std::nullopt, false);
  EXPECT_EQ(stateOf(row), sent) << "without a time the old one stays";
  EXPECT_THAT(columnsWrittenBy([&] { cancelNotification(row); }),
              ElementsAre(stamp, "NotificationSentStatus=3", "NotificationSent=True",
                          "SentTime=", "SentByUserIDNum=7"));
  EXPECT_EQ(stateOf(row), "1|3|NULL|\n");
  const DateTime moved = today().addDays(30);
  EXPECT_THAT(columnsWrittenBy([&] { changeNotificationNotifiedDate(row, moved); }),
              ElementsAre(stamp, "NotificationDate=" + toText(moved)));
}

TEST_F(Status, StatementsStandAsHostsKnowThem) {
  const auto personInCharge = getNotificationEmployeeAssignedFromNotificationIDs;
  const std::string joined =
      " FROM ClientNotification INNER JOIN Schedule ON ClientNotification.ScheduleIDNum = "
      "Schedule.ScheduleID WHERE Schedule.ClientNum=7;";
  EXPECT_THAT(
      statementsOf([&] {
        changeNotificationStatus(nt_Email, nt_AddStatus, 7);
        changeNotificationNotifiedDate(7, today());
        doesClientHaveAssociatedUnsentNotifications(7);
        cancelAllUnsentNotificationsForClientID(7);
        personInCharge(7, -1, -1, -1, -1);
        personInCharge(-1, 7, -1, -1, -1);
        personInCharge(-1, -1, 7, -1, -1);
        personInCharge(-1, -1, -1, 7, -1);
      }),
      ElementsAre(
          "1,3 SELECT Schedule.ScheduleModifiedStamp, Schedule.ScheduleID, Schedule.notifyType "
          "FROM Schedule WHERE ScheduleID=7;",
          "1,3 SELECT ClientNotification.ClientNotificationID, "
          "ClientNotification.ClientNotificationModifiedStamp, "
          "ClientNotification.NotificationDate FROM ClientNotification WHERE "
          "ClientNotificationID=7;",
          "1,1 SELECT Schedule.ClientNum" + joined,
          "1,3 SELECT ClientNotification.ClientNotificationID, Schedule.ClientNum" + joined,
          "1,1 SELECT Schedule.ScheduleID, Schedule.EmployeeAssigned FROM Schedule WHERE "
          "ScheduleID=7;",
          "1,1 SELECT Tasks.TaskID, Tasks.UserIDNum FROM Tasks WHERE TaskID=7;",
          "1,1 SELECT Appointments.AppointmentID, Appointments.UserIDNum FROM Appointments WHERE "
          "AppointmentID=7;",
          "1,1 SELECT Dockets.DocketID, Dockets.UserIDNum FROM Dockets WHERE DocketID=7;"));
}

/// A host with one open window, the list.
struct OpenList : FormHost, Form, AutoNotifyListForm {
  OpenList() : Form(static_cast<FormHost&>(*this), "FRMAUTONOTIFYLIST") {}
  void refreshAutoNotificationRowByAutoNotificationID(Id id) override { refresh(id); }
  void pumpMessages() override {}
  std::function<void(Id)> refresh;
};

TEST_F(Status, OpenListIsRefreshedOnRequestAloneWithWhatIsWritten) {
  OpenList list;
  std::vector<std::string> seen;
  list.refresh = [&](Id id) { seen.push_back(std::to_string(id) + ": " + stateOf(id)); };
  references().platform.formHost = &list;
  const Id row = addNotification(addEntry(1), nt_Email, today());
  changeNotificationToSent(addNotification(noId, nt_Email, today()), std::nullopt, false);
  changeNotificationToSent(row, std::nullopt, true);
  changeNotificationToSent(999, std::nullopt, true);
  EXPECT_THAT(seen, ElementsAre(std::to_string(row) + ": 1|2|NULL|\n", "999: "));
}

TEST_F(Status, ClientsRowsAreCancelledWhateverTheirState) {
  const Id pending = addNotification(addEntry(1, 50), nt_Email, today());
  const Id sent = addNotification(addEntry(2, 50), nt_Fax, today(), true);
  const Id others = addNotification(addEntry(1, 51), nt_Email, today());
  const Id personal = addNotification(addEntry(1, noId), nt_Email, today());
  EXPECT_TRUE(doesClientHaveAssociatedUnsentNotifications(50));
  EXPECT_FALSE(doesClientHaveAssociatedUnsentNotifications(52));
  EXPECT_FALSE(doesClientHaveAssociatedUnsentNotifications(noId));
  calls.record(true);
  cancelAllUnsentNotificationsForClientID(50);
  cancelAllUnsentNotificationsForClientID(noId);
  const std::string write = "updateFieldValue NotificationSentStatus=3";
  std::vector<std::string> steps;
  std::ranges::copy_if(calls.log(), std::back_inserter(steps), [&](const std::string& line) {
    return line == write || line.ends_with("Bookmark") || line == "moveNext";
  });
  EXPECT_THAT(steps, ElementsAre("getBookmark", write, "gotoBookmark", "moveNext",  //
                                 "getBookmark", write, "gotoBookmark", "moveNext"));
  for (const Id row : {pending, sent}) EXPECT_EQ(stateOf(row), "1|3|NULL|\n");
  for (const Id row : {others, personal}) EXPECT_EQ(stateOf(row), "0|1|NULL|\n");
  EXPECT_TRUE(doesClientHaveAssociatedUnsentNotifications(50)) << "a cancelled row counts too";
}

TEST_F(Status, MissingRowOrClosedDatabaseGivesDefaultsAndWritesNothing) {
  const Id entry = addEntry(1, 50);
  const Id row = addNotification(entry, nt_Email, today());
  calls.record(true);
  for (const Id id : {Id{999}, row}) {
    changeNotificationToSent(id, today(), false);
    cancelNotification(id);
    changeNotificationNotifiedDate(id, today());
    closeDatabase();
  }
  cancelAllUnsentNotificationsForClientID(50);
  EXPECT_TRUE(changeNotificationStatus(nt_Email, nt_RemoveStatus, entry));
  EXPECT_FALSE(getNotificationStatus(entry, nt_Email));
  EXPECT_THAT(logged("updateFieldValue"), IsEmpty());
  EXPECT_EQ(getNotificationID(entry, nt_Email), noId);
  EXPECT_EQ(getNumberOfUnsentNotifications(), 0);
  EXPECT_FALSE(doesClientHaveAssociatedUnsentNotifications(50));
}

}  // namespace
}  // namespace autonotify::test
