#include "control/contract/AutoNotifyListForm.h"
#include "store/modNotifyClients.h"
#include "store/store_fixture.h"

namespace autonotify::test {
namespace {

class Status : public StoreTest {
 protected:
  Id addEntry(int bits, Id clientNum = noId) {
    return addTestRow(
        "Schedule", "ScheduleID",
        {{"notifyType", std::to_string(bits)}, {"ClientNum", std::to_string(clientNum)}});
  }
  int bitsOf(Id scheduleId) {
    return toInteger(valueOf("Schedule", "notifyType", "ScheduleID=" + std::to_string(scheduleId)));
  }
  bool isStamped(Id scheduleId) {
    return !valueOf("Schedule", "ScheduleModifiedStamp", "ScheduleID=" + std::to_string(scheduleId))
                .isNull();
  }
};

TEST(ChannelBits, SelectedAndNamedByTheLowestBit) {
  const char* names[] = {"None",   "Email", "Fax",   "Email", "Letter", "Email",
                         "Fax",    "Email", "Phone", "Email", "Fax",    "Email",
                         "Letter", "Email", "Fax",   "Email", "Unknown"};
  for (int bits = 0; bits <= 16; ++bits) {
    const auto set = static_cast<std::uint8_t>(bits);
    EXPECT_EQ(getNotificationTypeNameFromNotificationTypeNum(set), names[bits]) << bits;
    EXPECT_EQ(IsEmailSelected(set), bits % 2 == 1) << bits;
    EXPECT_EQ(IsFaxSelected(set), bits / 2 % 2 == 1) << bits;
    EXPECT_EQ(IsLetterSelected(set), bits / 4 % 2 == 1) << bits;
    EXPECT_EQ(IsPhoneSelected(set), bits / 8 % 2 == 1) << bits;
  }
  EXPECT_EQ(getNotificationTypeNameFromNotificationTypeNum(240), "Unknown");
}

TEST_F(Status, ChangeOfABitWritesStampAndSumOrNothing) {
  struct Case {
    int before;
    int channel;
    int change;
    int after;
  };
  const Case cases[] = {
      {0, 1, nt_AddStatus, 1},
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
      {8, 16, nt_AddStatus, 8},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.before << " " << c.channel << " " << c.change);
    const Id entry = addEntry(c.before);
    calls().reset();
    calls().record(true);
    EXPECT_TRUE(changeNotificationStatus(static_cast<notifyType>(c.channel),
                                         static_cast<changeStatus>(c.change), entry));
    if (c.before == c.after) {
      EXPECT_TRUE(logged("updateFieldValue").empty());
    } else {
      EXPECT_THAT(logged("updateFieldValue"), ElementsAre("ScheduleModifiedStamp=" + nowText(),
                                                          "notifyType=" + std::to_string(c.after)));
    }
    EXPECT_EQ(bitsOf(entry), c.after);
  }
  EXPECT_FALSE(changeNotificationStatus(nt_Email, nt_AddStatus, 999));
}

TEST_F(Status, BitOfNullCountsAsNone) {
  const Id entry = addTestRow("Schedule", "ScheduleID", {{"scheduleName", "T2"}});
  EXPECT_FALSE(getNotificationStatus(entry, nt_Fax));
  EXPECT_TRUE(changeNotificationStatus(nt_Fax, nt_AddStatus, entry));
  EXPECT_EQ(bitsOf(entry), 2);
}

TEST_F(Status, StatusHealsABitWithoutARow) {
  const Id entry = addEntry(1 + 2);
  addNotification(entry, nt_Email, today());
  EXPECT_TRUE(getNotificationStatus(entry, nt_Email));
  EXPECT_FALSE(isStamped(entry));
  EXPECT_FALSE(getNotificationStatus(entry, nt_Letter));
  EXPECT_FALSE(getNotificationStatus(entry, static_cast<notifyType>(3)));
  EXPECT_EQ(bitsOf(entry), 3);
  EXPECT_FALSE(isStamped(entry));

  EXPECT_FALSE(getNotificationStatus(entry, nt_Fax));
  EXPECT_EQ(bitsOf(entry), 1);
  EXPECT_TRUE(isStamped(entry));
  EXPECT_FALSE(getNotificationStatus(999, nt_Email));
}

TEST_F(Status, NotificationIdIsTheFirstRowOfTheChannel) {
  const Id entry = addEntry(0);
  addNotification(noId, nt_Fax, today());
  const Id first = addNotification(entry, nt_Fax, today());
  addNotification(entry, nt_Fax, today());
  addNotification(entry, nt_Email, today());
  calls().reset();
  calls().record(true);
  EXPECT_EQ(getNotificationID(entry, nt_Fax), first);
  EXPECT_THAT(logged("openRecordset"),
              ElementsAre("1,1 SELECT ClientNotification.* FROM ClientNotification WHERE "
                          "ScheduleIDNum = " +
                          std::to_string(entry) + " AND NotificationType = 2;"));
  EXPECT_EQ(getNotificationID(entry, nt_Letter), noId);
  EXPECT_EQ(getNotificationID(noId, nt_Fax), noId) << "no entry is not the entry of others";
}

TEST_F(Status, UnsentNotificationsCountUpToMidnightOfToday) {
  const Id entry = addEntry(1);
  struct Case {
    DateTime date;
    bool sent;
    int count;
  };
  const DateTime day = today();
  const DateTime tenToday = DateTime::fromSerial(day.days(), 36000);
  const Case cases[] = {{day.addDays(1), false, 0},
                        {tenToday, false, 0},
                        {day, true, 0},
                        {day, false, 1},
                        {day.addDays(-9), false, 2}};
  EXPECT_FALSE(needToSendAutoNotificationsToday());
  for (const Case& c : cases) {
    addNotification(entry, nt_Email, c.date, c.sent);
    EXPECT_EQ(getNumberOfUnsentNotifications(), c.count);
  }
  EXPECT_TRUE(needToSendAutoNotificationsToday());
}

TEST_F(Status, UnsentStatementIsSortedAndDatedToday) {
  calls().record(true);
  getNumberOfUnsentNotifications();
  EXPECT_THAT(logged("openRecordset"),
              ElementsAre("1,1 SELECT ClientNotification.NotificationSent, "
                          "ClientNotification.NotificationDate FROM ClientNotification WHERE "
                          "ClientNotification.NotificationDate <= #" +
                          database().formatDateForSQL(today()) +
                          "# AND ClientNotification.NotificationSent=False ORDER BY "
                          "NotificationSent, NotificationDate;"));
}

TEST_F(Status, PersonInChargeComesFromTheFirstItem) {
  const Id ann = addTestRow("AccountantEmployeeInfo", "ContactID", {{"DisplayName", "Ann Fisher"}});
  const std::string annId = std::to_string(ann);
  const Id entry = addTestRow("Schedule", "ScheduleID", {{"EmployeeAssigned", "Bo Lind"}});
  const Id bare = addEntry(0);
  const Id task = addTestRow("Tasks", "TaskID", {{"UserIDNum", annId}});
  const Id appointment = addTestRow("Appointments", "AppointmentID", {{"UserIDNum", annId}});
  const Id docket = addTestRow("Dockets", "DocketID", {{"UserIDNum", annId}});
  const Id idleDocket = addTestRow("Dockets", "DocketID", {{"Subject", "x"}});
  struct Case {
    Id ids[4];
    const char* expected;
  };
  const Case cases[] = {
      {{entry, task, appointment, docket}, "Bo Lind"},
      {{bare, task, appointment, docket}, "None Assigned"},
      {{-1, task, -1, -1}, "Ann Fisher"},
      {{-1, -1, appointment, docket}, "Ann Fisher"},
      {{-1, -1, -1, docket}, "Ann Fisher"},
      {{-1, -1, -1, idleDocket}, "None Assigned"},
      {{-1, -1, -1, 999}, "None Assigned"},
      {{-1, -1, -1, -1}, "None Assigned"},
      {{-5, 0, -1, docket}, "None Assigned"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(
        getNotificationEmployeeAssignedFromNotificationIDs(c.ids[0], c.ids[1], c.ids[2], c.ids[3]),
        c.expected);
  }
}

// The states of a row.

struct RowState {
  bool sent;
  int status;
  Value sentTime;
  Value user;
  Value stamp;
};

class RowStates : public Status {
 protected:
  RowState stateOf(Id row) {
    const std::string where = "ClientNotificationID=" + std::to_string(row);
    const auto read = [&](const char* column) {
      return valueOf("ClientNotification", column, where);
    };
    return {toFlag(read("NotificationSent")), toInteger(read("NotificationSentStatus")),
            read("SentTime"), read("SentByUserIDNum"), read("ClientNotificationModifiedStamp")};
  }
};

TEST_F(RowStates, SentThenSentAgainThenCancelled) {
  const Id row = addNotification(addEntry(1), nt_Email, today());
  const RowState pending = stateOf(row);
  EXPECT_FALSE(pending.sent);
  EXPECT_EQ(pending.status, enumNotificationSendStatus_NotSent);
  EXPECT_TRUE(pending.sentTime.isNull());

  const DateTime noon = DateTime::fromSerial(today().days(), 43200);
  calls().reset();
  calls().record(true);
  changeNotificationToSent(row, noon, false);
  EXPECT_THAT(
      logged("updateFieldValue"),
      ElementsAre("ClientNotificationModifiedStamp=" + nowText(), "NotificationSent=True",
                  "NotificationSentStatus=2", "SentByUserIDNum=" + std::to_string(currentUser),
                  "SentTime=" + toText(noon)));
  EXPECT_TRUE(stateOf(row).sent);
  EXPECT_EQ(stateOf(row).sentTime, Value(noon));

  changeNotificationToSent(row, std::nullopt, false);
  EXPECT_EQ(stateOf(row).sentTime, Value(noon)) << "without a time the old one stays";
  EXPECT_EQ(stateOf(row).status, enumNotificationSendStatus_Sent);

  calls().reset();
  calls().record(true);
  cancelNotification(row);
  EXPECT_THAT(logged("updateFieldValue"),
              ElementsAre("ClientNotificationModifiedStamp=" + nowText(),
                          "NotificationSentStatus=3", "NotificationSent=True",
                          "SentTime=", "SentByUserIDNum=" + std::to_string(currentUser)));
  const RowState cancelled = stateOf(row);
  EXPECT_TRUE(cancelled.sent);
  EXPECT_EQ(cancelled.status, enumNotificationSendStatus_Cancelled);
  EXPECT_TRUE(cancelled.sentTime.isNull());
  EXPECT_EQ(toInteger(cancelled.user), currentUser);
}

TEST_F(RowStates, DateMovesInAnyState) {
  const Id row = addNotification(addEntry(1), nt_Email, today(), true);
  const DateTime moved = today().addDays(30);
  calls().reset();
  calls().record(true);
  changeNotificationNotifiedDate(row, moved);
  EXPECT_THAT(logged("updateFieldValue"),
              ElementsAre("ClientNotificationModifiedStamp=" + nowText(),
                          "NotificationDate=" + toText(moved)));
  EXPECT_TRUE(stateOf(row).sent);
}

TEST_F(RowStates, MissingRowIsLeftAlone) {
  calls().record(true);
  changeNotificationToSent(999, today(), false);
  cancelNotification(999);
  changeNotificationNotifiedDate(999, today());
  EXPECT_TRUE(logged("updateFieldValue").empty());
}

class FakeList : public AutoNotifyListForm {
 public:
  explicit FakeList(std::string name) : name_(std::move(name)) {}
  std::string name() const override { return name_; }
  void refreshAutoNotificationRowByAutoNotificationID(Id id) override { refreshed.push_back(id); }
  std::vector<Id> refreshed;

 private:
  std::string name_;
};

TEST_F(RowStates, OpenListIsRefreshedOnRequestAlone) {
  FakeList other("frmOther"), list("FRMAUTONOTIFYLIST");
  forms().open = {&other, &list};
  const Id row = addNotification(addEntry(1), nt_Email, today());
  changeNotificationToSent(row, std::nullopt, false);
  EXPECT_TRUE(list.refreshed.empty());
  changeNotificationToSent(row, std::nullopt, true);
  changeNotificationToSent(999, std::nullopt, true);
  EXPECT_THAT(list.refreshed, ElementsAre(row, 999));
  EXPECT_TRUE(other.refreshed.empty());
  forms().open.clear();
  changeNotificationToSent(row, std::nullopt, true);
}

TEST_F(RowStates, ClientsRowsAreTakenWhateverTheirState) {
  const Id mine = addEntry(1, 50), mineToo = addEntry(2, 50), other = addEntry(1, 51);
  const Id personal = addEntry(1, noId);
  const Id pending = addNotification(mine, nt_Email, today());
  const Id sent = addNotification(mineToo, nt_Fax, today(), true);
  const Id others = addNotification(other, nt_Email, today());
  const Id personals = addNotification(personal, nt_Email, today());
  changeNotificationToSent(sent, today(), false);

  EXPECT_TRUE(doesClientHaveAssociatedUnsentNotifications(50));
  EXPECT_FALSE(doesClientHaveAssociatedUnsentNotifications(52));
  EXPECT_FALSE(doesClientHaveAssociatedUnsentNotifications(noId));
  cancelAllUnsentNotificationsForClientID(50);
  cancelAllUnsentNotificationsForClientID(noId);
  for (const Id row : {pending, sent}) {
    EXPECT_EQ(stateOf(row).status, enumNotificationSendStatus_Cancelled);
    EXPECT_TRUE(stateOf(row).sentTime.isNull());
  }
  for (const Id row : {others, personals}) EXPECT_FALSE(stateOf(row).sent);
  EXPECT_TRUE(doesClientHaveAssociatedUnsentNotifications(50)) << "a cancelled row counts too";
}

TEST_F(RowStates, CancellingAllEndsWhenNoBookmarkCanBeHad) {
  const Id entry = addEntry(1, 50);
  const Id rows[] = {addNotification(entry, nt_Email, today()),
                     addNotification(entry, nt_Fax, today()),
                     addNotification(entry, nt_Letter, today())};
  calls().reset();
  calls().record(true);
  cancelAllUnsentNotificationsForClientID(50);
  const int bookmark = callNumber("getBookmark", 2);
  calls().reset();
  calls().failAt(bookmark);
  errors().answer({error_choice::next});
  cancelAllUnsentNotificationsForClientID(50);
  EXPECT_EQ(errors().dialogs(), 1);
  for (const Id row : rows) EXPECT_EQ(stateOf(row).status, enumNotificationSendStatus_Cancelled);
}

TEST_F(RowStates, ClosedDatabaseGivesDefaults) {
  const Id entry = addEntry(1, 50);
  const Id row = addNotification(entry, nt_Email, today());
  closeDatabase();
  EXPECT_EQ(getNotificationID(entry, nt_Email), noId);
  EXPECT_FALSE(getNotificationStatus(entry, nt_Email));
  EXPECT_TRUE(changeNotificationStatus(nt_Email, nt_RemoveStatus, entry));
  EXPECT_EQ(getNumberOfUnsentNotifications(), 0);
  EXPECT_FALSE(doesClientHaveAssociatedUnsentNotifications(50));
  EXPECT_EQ(getNotificationEmployeeAssignedFromNotificationIDs(entry, -1, -1, -1), "None Assigned");
  cancelAllUnsentNotificationsForClientID(50);
  changeNotificationToSent(row, today(), true);
  cancelNotification(row);
  changeNotificationNotifiedDate(row, today());
  openDatabase();
  EXPECT_EQ(bitsOf(entry), 1);
  EXPECT_FALSE(stateOf(row).sent);
  EXPECT_TRUE(stateOf(row).stamp.isNull());
}

}  // namespace
}  // namespace autonotify::test
