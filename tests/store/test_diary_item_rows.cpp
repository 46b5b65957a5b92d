#include "channels/modChannelNotifications.h"
#include "contract/recordsets.h"
#include "store/DiaryItemTest.h"
#include "store/modNotifyClients.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Bits, rows and their ids.

TEST_F(DiaryItems, ChangeOfABitRaisesTheFlagAndNeverLowersIt) {
  struct Case {
    int before, channel, change;
    std::vector<std::string> writes;
  };
  const Case cases[] = {{0, 1, nt_AddStatus, {"notifyType=1", "ClientNotifiedFlag=True"}},
                        {5, 2, nt_AddStatus, {"notifyType=7", "ClientNotifiedFlag=True"}},
                        {4, 4, nt_AddStatus, {"ClientNotifiedFlag=True"}},
                        {12, 8, nt_RemoveStatus, {"notifyType=4"}},
                        {12, 1, nt_RemoveStatus, {}},
                        {8, 8, 7, {"notifyType=0"}},
                        {3, 3, nt_AddStatus, {}}};
  for (const auto& [kind, table, key, link] : tables) {
    for (const Case& c : cases) {
      const Id item = addRow(table, {{"notifyType", c.before}});
      EXPECT_EQ(
          columnsWrittenBy([&] {
            EXPECT_TRUE(changeApptNotificationStatus(kind, static_cast<notifyType>(c.channel),
                                                     static_cast<changeStatus>(c.change), item));
          }),
          c.writes);
      EXPECT_THAT(logged("openRecordset"),
                  ElementsAre("1,3 SELECT " + table + ".* FROM " + table + " WHERE " + key + "=" +
                              std::to_string(item) + ";"));
    }
    EXPECT_FALSE(changeApptNotificationStatus(kind, nt_Email, nt_AddStatus, 4711));
  }
}

TEST_F(DiaryItems, RowsAreFoundByTheLinkOfTheirKind) {
  for (const KindTable& kind : tables) {
    const Id item = addRow(kind.table, {{"notifyType", 1 + 2}});
    addLinked(kind, noId, nt_Fax);
    const Id fax = addLinked(kind, item, nt_Fax, {{"NotificationDate", reminder}});
    addLinked(kind, item, nt_Fax);
    EXPECT_THAT(
        statementsOf([&] { EXPECT_EQ(getApptNotificationID(kind.kind, item, nt_Fax), fax); }),
        ElementsAre("1,1 SELECT ClientNotification.ClientNotificationID, "
                    "ClientNotification." +
                    kind.link + " FROM ClientNotification WHERE " + kind.link + "=" +
                    std::to_string(item) + " AND NotificationType = 2;"));
    EXPECT_EQ(getApptNotificationID(kind.kind, noId, nt_Fax), noId) << "no item, no row";
    EXPECT_THAT(
        statementsOf([&] { EXPECT_EQ(getAppointmentIDFromNotificationID(kind.kind, fax), item); }),
        ElementsAre(
            "1,1 SELECT ClientNotification.ClientNotificationID, ClientNotification." + kind.link +
            " FROM ClientNotification WHERE ClientNotificationID=" + std::to_string(fax) + ";"));
    EXPECT_EQ(getApptNotificationDate(fax), reminder);
    EXPECT_EQ(getApptNotificationDate(fax + 1), DateTime{}) << "NULL";
    // A bit without a row is healed.
    EXPECT_TRUE(getApptNotificationStatus(kind.kind, item, nt_Fax));
    EXPECT_THAT(columnsWrittenBy(
                    [&] { EXPECT_FALSE(getApptNotificationStatus(kind.kind, item, nt_Email)); }),
                ElementsAre("notifyType=2"));
    EXPECT_FALSE(getApptNotificationStatus(kind.kind, item, nt_Phone));
  }
}

TEST_F(DiaryItems, DeletingClearsTheBitOfItemsButNotOfTasks) {
  for (const KindTable& kind : tables) {
    const Id item = addRow(kind.table, {{"notifyType", 3}});
    addLinked(kind, item, nt_Fax);
    deleteApptNotification(kind.kind, nt_Fax, item);
    deleteApptNotification(kind.kind, nt_Email, item);
    EXPECT_EQ(rowCount(kind.table, kind.key + "=" + std::to_string(item) + " AND notifyType=1"), 1)
        << "an email that was not there keeps its stale bit";
  }
  const Id entry = addRow("Schedule", {{"notifyType", 2}});
  addNotification(entry, nt_Fax, day);
  deleteApptNotification(Tasks, nt_Fax, addTask(entry, "GST"));
  EXPECT_EQ(notificationCount(), 0);
  EXPECT_EQ(rowCount("Schedule", "notifyType=2"), 1);
}

TEST_F(DiaryItems, CopyingSkipsEmptyFieldsTextAndSubject) {
  const RowFields old{
      {"Field1", "a"}, {"Field3", "c"}, {"Field4", "d"}, {"Field6", "f"}, {"Memo", "m"}};
  const std::pair<notifyType, std::vector<std::string>> cases[] = {
      {nt_Email, {"Field1=a", "Field3=c", "Field6=f"}},
      {nt_Fax, {"Field1=a", "Field3=c", "Field4=d"}},
      {nt_Phone, {"Field1=a", "Field3=c", "Field4=d", "Field6=f"}}};
  for (const KindTable& kind : tables) {
    for (const auto& [channel, copied] : cases) {
      addLinked(kind, 50, channel, old);
      const Id row = addLinked(kind, 51, channel, {{"Field2", "kept"}});
      const auto copy = [&](Id item) {
        return columnsWrittenBy([&] {
          copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(kind.kind, row, item);
        });
      };
      EXPECT_EQ(copy(50), copied);
      EXPECT_EQ(logged("openRecordset").front(),
                "1,1 SELECT ClientNotification.ClientNotificationID, "
                "ClientNotification.NotificationType FROM ClientNotification WHERE "
                "ClientNotificationID=" +
                    std::to_string(row) + ";");
      EXPECT_THAT(copy(52), IsEmpty());
    }
  }
}

// A task is a door to its entry.

TEST_F(DiaryItems, TaskDoesWhatItsEntryDoes) {
  addKind(103, 1, 5, "{\\rtf1\\ansi Dear client.\\par }");
  const Id client = addRow("ClientData", {{"CompanyIDNum", office.company}});
  const auto newEntry = [&] {
    return addSchedule(103, 1, day, {{"ClientNum", client}, {"scheduleName", "GST"}});
  };
  const Id entry = newEntry(), twin = newEntry();
  const Id task = addTask(entry, "GST");
  addTask(twin, "GST");
  constexpr Id (*forEntry[])(Id) = {
      addNewEmailNotificationFromScheduleIDNum, addNewFaxNotificationFromScheduleIDNum,
      addNewLetterNotificationFromScheduleIDNum, addNewPhoneNotificationFromScheduleIDNum};
  for (int i = 0; i < 4; ++i) {
    const auto& [channel, add] = allAdds[i];
    const Id row = add(Tasks, task, reminder, noId, noId, noId);
    const std::string columns = "NotificationType, NotificationDate, Field1, Field4, Field6, Memo";
    EXPECT_EQ(rowText(row, columns), rowText(forEntry[i](twin), columns));
    EXPECT_EQ(rowText(row, "ScheduleIDNum, TaskIDNum"), std::to_string(entry) + "|-1|\n");
    EXPECT_EQ(getApptNotificationID(Tasks, task, channel), row);
    EXPECT_FALSE(getApptNotificationStatus(Tasks, task, channel));
    EXPECT_TRUE(changeApptNotificationStatus(Tasks, channel, nt_AddStatus, task));
    EXPECT_TRUE(getApptNotificationStatus(Tasks, task, channel));
  }
  const Id old = getNotificationID(twin, nt_Email);
  editEmailNotification(old, "old@x", "", "", "old subject", "");
  const Id row = getNotificationID(entry, nt_Email);
  EXPECT_THAT(columnsWrittenBy([&] {
                copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(Tasks, row, task + 1);
              }),
              ElementsAre("Field1=old@x"));
}

TEST_F(DiaryItems, TaskWithoutAnEntryGivesTheDefaults) {
  const Id task = addTask(noId, "Filing");
  EXPECT_FALSE(getApptNotificationStatus(Tasks, task, nt_Email));
  EXPECT_FALSE(changeApptNotificationStatus(Tasks, nt_Email, nt_AddStatus, task));
  EXPECT_EQ(getApptNotificationID(Tasks, task, nt_Email), noId);
  deleteApptNotification(Tasks, nt_Email, task);
  errors.answer({error_choice::leave});
  EXPECT_EQ(addNewApptEmailNotification(Tasks, task, reminder), noId) << "nobody to write to";
}

// What is no kind, and no database.

TEST_F(DiaryItems, UnknownKindHasNoTable) {
  const Id row = addLinked(tables[0], office.appointment, nt_Email);
  for (const CurrentDayTimerType kind : unknownKinds) {
    const auto refused = [&](const std::string& statement, auto&& run) {
      errors.answer({error_choice::leave});
      const int asked = errors.dialogs();
      const auto opened = statementsOf(run);
      EXPECT_EQ(errors.dialogs(), asked + 1);
      EXPECT_EQ(opened.back(), statement);
    };
    refused("1,1 SELECT .* FROM  WHERE =7;",
            [&] { EXPECT_FALSE(getApptNotificationStatus(kind, 7, nt_Email)); });
    refused("1,3 SELECT .* FROM  WHERE =7;",
            [&] { EXPECT_TRUE(changeApptNotificationStatus(kind, nt_Email, nt_AddStatus, 7)); });
    refused("1,3 SELECT .* FROM  WHERE =7;", [&] { deleteApptNotification(kind, nt_Email, 7); });
    refused("1,1 SELECT .* FROM  WHERE =7;",
            [&] { EXPECT_EQ(getAppointmentBodyText(kind, 7), ""); });
    refused(
        "1,1 SELECT ClientNotification.ClientNotificationID, ClientNotification. FROM "
        "ClientNotification WHERE =7 AND NotificationType = 1;",
        [&] { EXPECT_EQ(getApptNotificationID(kind, 7, nt_Email), noId); });
    refused(
        "1,1 SELECT ClientNotification.ClientNotificationID, ClientNotification. FROM "
        "ClientNotification WHERE ClientNotificationID=" +
            std::to_string(row) + ";",
        [&] { EXPECT_EQ(getAppointmentIDFromNotificationID(kind, row), noId); });
    refused("1,1 SELECT .* FROM  WHERE =7;",
            [&] { EXPECT_EQ(addNewApptFaxNotification(kind, 7, reminder, noId, 1, 1), noId); });
  }
  EXPECT_EQ(notificationCount(), 1);
}

TEST_F(DiaryItems, ClosedDatabaseGivesTheDefaults) {
  const Id row = addLinked(tables[0], office.appointment, nt_Email, {{"NotificationDate", day}});
  closeDatabase();
  for (const CurrentDayTimerType kind : {Appointments, Dockets, Tasks, unknownKinds[0]}) {
    EXPECT_TRUE(changeApptNotificationStatus(kind, nt_Fax, nt_AddStatus, office.appointment));
    EXPECT_EQ(getAppointmentBodyText(kind, office.appointment), "");
    for (const auto& [channel, add] : allAdds) EXPECT_EQ(add(kind, 1, day, row, 1, 1), noId);
    resetApptNotificationBody(kind, row, office.appointment);
  }
  EXPECT_EQ(getApptNotificationDate(row), DateTime{});
}

}  // namespace
}  // namespace autonotify::test
