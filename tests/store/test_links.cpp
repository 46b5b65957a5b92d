#include "contract/enumerations.h"
#include "host/services/HostClientIDClass.h"
#include "platform/text.h"
#include "store/modItemLinks.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class Links : public HostTest {
 protected:
  /// An archived entry of the client with the id 900.
  void archive(Id clientNum, Id contactID) {
    addRow("archiveSchedule", {{"oldScheduleID", 900},
                               {"ClientNum", clientNum},
                               {"ContactIDNum", contactID},
                               {"totalNum", 104},  //
                               {"scheduleNum", 5},
                               {"scheduleName", "Old GST"}});
  }
};

TEST_F(Links, ValidatorsJudgeTheForm) {
  const std::pair<const char*, bool> cases[] = {
      {"", false}, {"0", false},         {"-1", false},  {"abc", false}, {"12a", false},
      {"1", true}, {"2147483647", true}, {"0.4", false}, {"0.6", true},  {" 7 ", true}};
  for (const auto validator :
       {isValidNotificationID, validAppointmentID, validDocketID, validScheduleID, validTaskID}) {
    for (const auto& [text, valid] : cases) EXPECT_EQ(validator(text), valid) << text;
    errors.answer({error_choice::leave});
    EXPECT_FALSE(validator("99999999999"));
    EXPECT_EQ(errors.recorded().back().number, error_number::overflow);
  }
}

TEST_F(Links, LookupsOfAScheduleEntryGoOnToTheArchive) {
  const Id live =
      addSchedule(103, 4, {}, {{"ClientNum", 31}, {"ContactIDNum", 32}, {"scheduleName", "GST"}});
  archive(41, 42);
  const Id bare = addRow("Schedule", {{"Year", 2026}});
  const Id task = addTask(live, "GST");
  addTask(noId, "of nothing");
  addRow("archiveTasks", {{"oldTaskID", 77}, {"ScheduleIDNum", 900}});
  struct Case {
    Id (*lookup)(Id);
    Id live, archived;
  };
  const Case cases[] = {{getClientDataIDFromScheduleID, 31, 41},
                        {getContactIDFromScheduleID, 32, 42},
                        {getTotalNumFromScheduleID, 103, 104},
                        {getScheduleNumFromScheduleID, 4, 5},
                        {getTaskIDFromScheduleID, task, 77}};
  for (const Case& c : cases) {
    EXPECT_EQ(c.lookup(live), c.live);
    EXPECT_EQ(c.lookup(900), c.archived);
    for (const Id none : {bare, Id{12345}, noId}) EXPECT_EQ(c.lookup(none), noId);
  }
  EXPECT_EQ(getScheduleNameFromScheduleID(live), "GST");
  EXPECT_EQ(getScheduleNameFromScheduleID(900), "Old GST");
  EXPECT_EQ(getScheduleNameFromScheduleID(bare), "");
  EXPECT_EQ(getScheduleIDFromTaskID(task), live);
}

struct NotedClient : host::HostClientIDClass {
  void put_clientDropDownCtrlReference(clientDropDownCtrlReference* given) override {
    list = given;
  }
  clientDropDownCtrlReference* list = nullptr;
};

TEST_F(Links, ClientObjectTakesTheClientList) {
  registry.registerClass<NotedClient>();
  const auto client = ClientIDClassInit();
  EXPECT_EQ(dynamic_cast<NotedClient&>(*client).list, &clients);
}

TEST_F(Links, LookupStatementsStandAsHostsKnowThem) {
  const Id row = addRow("ClientNotification", {{"DocketIDNum", 7}});
  const std::string ofRow =
      "1,1 SELECT ClientNotification.* FROM ClientNotification WHERE ClientNotificationID=" +
      std::to_string(row) + ";";
  EXPECT_THAT(
      statementsOf([&] {
        getTaskIDFromScheduleID(900);
        getCompanyIDFromScheduleID(900);
        getCompanyIDFromAutoNotificationID(row);
        getContactIDFromAutoNotificationID(row);
      }),
      ElementsAre(
          "1,1 SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=900;",
          "1,1 SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE "
          "ScheduleIDNum=900;",
          "1,1 SELECT Schedule.ScheduleID, Schedule.ClientNum FROM Schedule WHERE ScheduleID=900;",
          "1,1 SELECT archiveSchedule.oldScheduleID, archiveSchedule.ClientNum FROM "
          "archiveSchedule WHERE archiveSchedule.oldScheduleID=900;",
          ofRow,
          "1,1 SELECT Dockets.CompanyIDNum, Dockets.DocketID  FROM Dockets WHERE DocketID=7;",
          ofRow,
          "1,1 SELECT Dockets.ContactIDNum, Dockets.DocketID  FROM Dockets WHERE DocketID=7;"));
  plainDatabase->connection().exec("UPDATE ClientNotification SET ScheduleIDNum=8");
  EXPECT_THAT(statementsOf([&] { getClientTypeFromNotificationID(row); }),
              ElementsAre(ofRow, "1,1 SELECT Schedule.* FROM Schedule WHERE ScheduleID=8;"));
}

TEST_F(Links, ClientComesFromTheLinkedItemBeforeTheRow) {
  const TestClient client = addClient("Maple Ltd", "Jo Park");
  const Id ofCompany =
      addRow("Schedule", {{"ClientNum", client.clientNum}, {"ContactIDNum", noId}});
  const Id company = getCompanyIDFromScheduleID(ofCompany);
  const Id ofContact =
      addRow("Schedule", {{"ClientNum", noId}, {"ContactIDNum", client.contactID}});
  const Id ofNobody = addRow("Schedule", {{"ContactIDNum", 7777}});
  archive(client.clientNum, 41);
  const RowFields item{{"Subject", "Review"}, {"CompanyIDNum", 5}, {"ContactIDNum", 6}};
  const Id appointment = addRow("Appointments", item);
  const Id task = addRow("Tasks", item);
  const Id docket = addRow("Dockets", item);
  const Id bareTask = addRow("Tasks", {{"Subject", "x"}});
  EXPECT_EQ(getAppointmentSubjectFromAppointmentID(appointment), "Review");
  EXPECT_EQ(getTaskSubjectFromTaskID(bareTask), "x");
  EXPECT_EQ(getDocketSubjectFromDocketID(docket), "Review");
  EXPECT_EQ(getDocketSubjectFromDocketID(999), "");
  EXPECT_EQ(getCompanyNameFromScheduleID(900), "Maple Ltd");
  EXPECT_EQ(getCompanyNameFromScheduleID(ofContact), "");

  struct Case {
    const char* link;
    Id item, companyId, contactId;
    int clientType;
  };
  const Case cases[] = {{"ScheduleIDNum", ofCompany, company, 9, enumAutoNotifyCompany},
                        {"ScheduleIDNum", ofContact, 8, client.contactID, enumAutoNotifyContact},
                        {"ScheduleIDNum", ofNobody, 8, 7777, 0},
                        {"ScheduleIDNum", 900, company, 41, 0},
                        {"ScheduleIDNum", 12345, 8, 9, 0},
                        {"ApptIDNum", appointment, 5, 6, 0},
                        {"TaskIDNum", task, 5, 6, 0},
                        {"DocketIDNum", docket, 5, 6, 0},
                        {"TaskIDNum", bareTask, 8, 9, 0},
                        {"OperatingProcedureIDNum", 3, 8, 9, 0}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.link << " " << c.item);
    const Id row =
        addRow("ClientNotification", {{c.link, c.item}, {"CompanyIDNum", 8}, {"ContactIDNum", 9}});
    EXPECT_EQ(getCompanyIDFromAutoNotificationID(row), c.companyId);
    EXPECT_EQ(getContactIDFromAutoNotificationID(row), c.contactId);
    EXPECT_EQ(getClientTypeFromNotificationID(row), c.clientType);
  }
  EXPECT_EQ(getCompanyIDFromAutoNotificationID(999), noId);
  EXPECT_EQ(getClientTypeFromNotificationID(999), 0);

  const auto both = getCompanyAndContactIDFromNotificationID;
  const CompanyAndContactID ofItem{5, 6};
  EXPECT_EQ(both(ofCompany, task, appointment, docket), (CompanyAndContactID{company, noId}));
  EXPECT_EQ(both(ofContact, task, -1, -1), (CompanyAndContactID{noId, client.contactID}));
  EXPECT_EQ(both(-1, task, -1, docket), ofItem);
  EXPECT_EQ(both(-1, -1, appointment, docket), ofItem);
  EXPECT_EQ(both(-1, bareTask, appointment, docket), CompanyAndContactID{});
  EXPECT_EQ(both(-1, -1, -1, -1), CompanyAndContactID{});
}

// Copying and deleting.

class Copying : public HostTest {
 protected:
  Id addMarked(Id schedule, int channel, const std::string& mark, const std::string& field1 = {}) {
    RowFields fields{
        {"ScheduleIDNum", schedule}, {"NotificationType", channel}, {"Field1", field1}};
    for (const char* name : {"Field2", "Field3", "Field4", "Field5", "Field6", "Memo"})
      fields.emplace_back(name, mark);
    return addRow("ClientNotification", fields);
  }
  std::string fieldsOf(Id row) {
    return dump(
        "SELECT Field1, Field2, Field3, Field4, Field5, Field6, Memo FROM ClientNotification "
        "WHERE ClientNotificationID=" +
        std::to_string(row));
  }
};

TEST_F(Copying, ByScheduleKeepsSubjectTextAndEmptyOldFields) {
  const std::pair<int, const char*> cases[] = {{nt_Email, "new|old|old|new|old|old|new|\n"},
                                               {nt_Fax, "new|old|old|old|old|new|new|\n"},
                                               {nt_Phone, "new|old|old|old|old|old|new|\n"}};
  for (const auto& [channel, expected] : cases) {
    const Id old = addMarked(70, channel, "old");
    const Id row = addMarked(71, channel, "new", "new");
    EXPECT_THAT(
        columnsWrittenBy([&] { copyOldNotificationInfoToNewNotificationByScheduleIDNum(row, 70); }),
        Not(Contains(HasSubstr("ClientNotificationModifiedStamp"))));
    EXPECT_EQ(fieldsOf(row), expected);
    EXPECT_EQ(
        logged("openRecordset").back(),
        "1,3 SELECT ClientNotification.* FROM ClientNotification WHERE ClientNotificationID=" +
            std::to_string(old) + ";");
  }
  const Id lone = addMarked(71, nt_Letter, "new");
  copyOldNotificationInfoToNewNotificationByScheduleIDNum(lone, 70);
  EXPECT_EQ(fieldsOf(lone), "|new|new|new|new|new|new|\n") << "no old row of the channel";
}

TEST_F(Copying, ByIdTheUnfinishedStatementIsRefused) {
  const Id old = addMarked(70, nt_Email, "old", "to");
  const Id row = addMarked(71, nt_Email, "new", "new");
  errors.answer({error_choice::leave});
  EXPECT_THAT(statementsOf([&] { copyOldNotificationInfoToNewNotification(row, old); }),
              ElementsAre("1,3 SELECT ClientNotification.* FROM ClientNotification "
                          "ClientNotificationID=" +
                          std::to_string(row) + ";"));
  // Going on past open, test and close.
  errors.answer({error_choice::next, error_choice::next, error_choice::next});
  copyOldNotificationInfoToNewNotification(row, old);
  EXPECT_EQ(fieldsOf(row), "new|new|new|new|new|new|new|\n");
}

/// Reads the unfinished statement as a selection by key.
class LenientDatabase : public CountedDatabase {
 public:
  using CountedDatabase::CountedDatabase;
  RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock, int r1,
                                const std::string& r2, int r3, bool r4) override {
    const std::string finished =
        replaceAll(sql, "FROM ClientNotification Client", "FROM ClientNotification WHERE Client");
    return CountedDatabase::openRecordset(finished, cursor, lock, r1, r2, r3, r4);
  }
};

TEST_F(Copying, ByIdKeepsNothingBackForARowWithoutAChannel) {
  LenientDatabase lenient(*plainDatabase, calls);
  references().databaseReference = &lenient;
  const Id old = addMarked(70, nt_Email, "old", "to");
  const Id row = addMarked(71, 0, "new", "new");
  copyOldNotificationInfoToNewNotification(row, old);
  EXPECT_EQ(fieldsOf(row), "to|old|old|old|old|old|new|\n");
  openDatabase();
}

TEST_F(Copying, DeleteTellsWhetherItDid) {
  const Id entry = addRow("Schedule", {{"notifyType", 1}});
  const Id row = addMarked(entry, nt_Email, "x");
  const Id other = addMarked(entry, nt_Fax, "y");
  EXPECT_FALSE(deleteNotification(999));
  EXPECT_TRUE(deleteNotification(row));
  EXPECT_FALSE(deleteNotification(row));
  closeDatabase();
  EXPECT_FALSE(deleteNotification(other));
  EXPECT_EQ(rowCount("ClientNotification"), 1);
  EXPECT_EQ(rowCount("Schedule", "notifyType=1"), 1) << "the bit is the caller's";
}

}  // namespace
}  // namespace autonotify::test
