#include "control/contract/enumerations.h"
#include "store/modItemLinks.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "store/store_fixture.h"

namespace autonotify::test {
namespace {

std::string text(Id id) {
  return std::to_string(id);
}

class Links : public StoreTest {};

TEST_F(Links, ValidatorsJudgeTheForm) {
  using Validator = bool (*)(const std::string&);
  const Validator validators[] = {isValidNotificationID, validAppointmentID, validDocketID,
                                  validScheduleID, validTaskID};
  struct Case {
    const char* text;
    bool valid;
  };
  const Case cases[] = {{"", false},    {"0", false}, {"-1", false},        {"abc", false},
                        {"12a", false}, {"1", true},  {"2147483647", true}, {"0.4", false},
                        {"0.6", true},  {" 7 ", true}};
  for (const Validator validator : validators) {
    for (const Case& c : cases) EXPECT_EQ(validator(c.text), c.valid) << "'" << c.text << "'";
    errors().answer({error_choice::leave});
    EXPECT_FALSE(validator("99999999999"));
    EXPECT_EQ(errors().recorded().back().number, error_number::overflow);
  }
}

TEST_F(Links, LookupsOfAScheduleEntryGoOnToTheArchive) {
  const auto fields = [](const char* idColumn, const std::string& id, const std::string& name) {
    return RowFields{{idColumn, id},      {"ClientNum", "31"},  {"ContactIDNum", "32"},
                     {"totalNum", "103"}, {"scheduleNum", "4"}, {"scheduleName", name}};
  };
  const Id live = addTestRow("Schedule", "ScheduleID", fields("Year", "2026", "GST"));
  addTestRow("archiveSchedule", "archiveScheduleID", fields("oldScheduleID", "900", "Old GST"));
  const Id bare = addTestRow("Schedule", "ScheduleID", {{"Year", "2026"}});
  const Id task = addTestRow("Tasks", "TaskID", {{"ScheduleIDNum", text(live)}});
  addTestRow("archiveTasks", "archiveTaskID", {{"oldTaskID", "77"}, {"ScheduleIDNum", "900"}});
  addTestRow("Tasks", "TaskID", {{"ScheduleIDNum", "-1"}});

  struct Case {
    Id (*lookup)(Id);
    Id live;
    Id archived;
  };
  const Case cases[] = {{getClientDataIDFromScheduleID, 31, 31},
                        {getContactIDFromScheduleID, 32, 32},
                        {getTotalNumFromScheduleID, 103, 103},
                        {getScheduleNumFromScheduleID, 4, 4},
                        {getTaskIDFromScheduleID, task, 77}};
  for (const Case& c : cases) {
    EXPECT_EQ(c.lookup(live), c.live);
    EXPECT_EQ(c.lookup(900), c.archived);
    EXPECT_EQ(c.lookup(bare), noId);
    EXPECT_EQ(c.lookup(12345), noId);
    EXPECT_EQ(c.lookup(noId), noId);
  }
  EXPECT_EQ(getScheduleNameFromScheduleID(live), "GST");
  EXPECT_EQ(getScheduleNameFromScheduleID(900), "Old GST");
  EXPECT_EQ(getScheduleNameFromScheduleID(bare), "");
  EXPECT_EQ(getScheduleIDFromTaskID(task), live);
}

TEST_F(Links, LookupStatementsStandAsHostsKnowThem) {
  calls().record(true);
  getTaskIDFromScheduleID(900);
  getCompanyIDFromScheduleID(900);
  getTotalNumFromScheduleID(900);
  EXPECT_THAT(
      logged("openRecordset"),
      ElementsAre(
          "1,1 SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=900;",
          "1,1 SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE "
          "ScheduleIDNum=900;",
          "1,1 SELECT Schedule.ScheduleID, Schedule.ClientNum FROM Schedule WHERE ScheduleID=900;",
          "1,1 SELECT archiveSchedule.oldScheduleID, archiveSchedule.ClientNum FROM "
          "archiveSchedule WHERE archiveSchedule.oldScheduleID=900;",
          "1,1 SELECT Schedule.ScheduleID, Schedule.TotalNum FROM Schedule WHERE ScheduleID=900;",
          "1,1 SELECT archiveSchedule.oldScheduleID, archiveSchedule.TotalNum FROM "
          "archiveSchedule WHERE oldScheduleID=900;"));
}

TEST_F(Links, LookupsOfDiaryItems) {
  const Id appointment =
      addTestRow("Appointments", "AppointmentID",
                 {{"Subject", "Review"}, {"CompanyIDNum", "5"}, {"ContactIDNum", "6"}});
  const Id task = addTestRow("Tasks", "TaskID", {{"Subject", "Call"}});
  const Id docket = addTestRow("Dockets", "DocketID", {{"Subject", "Filing"}});
  EXPECT_EQ(getAppointmentSubjectFromAppointmentID(appointment), "Review");
  EXPECT_EQ(getTaskSubjectFromTaskID(task), "Call");
  EXPECT_EQ(getDocketSubjectFromDocketID(docket), "Filing");
  EXPECT_EQ(getDocketSubjectFromDocketID(999), "");
  EXPECT_EQ(getCompanyIDFromAppointmentID(appointment), 5);
  EXPECT_EQ(getContactIDFromAppointmentID(appointment), 6);
  closeDatabase();
  EXPECT_EQ(getAppointmentSubjectFromAppointmentID(appointment), "");
  EXPECT_EQ(getContactIDFromAppointmentID(appointment), noId);
  openDatabase();
}

// The client of a notification.

class Clients : public StoreTest {
 protected:
  Clients()
      : company(addCompany("Maple Ltd")),
        clientData(addTestRow("ClientData", "ClientDataID", {{"CompanyIDNum", text(company)}})),
        contact(addTestRow("Contacts", "ContactID", {{"DisplayName", "Jo Park"}})),
        companyEntry(addTestRow("Schedule", "ScheduleID",
                                {{"ClientNum", text(clientData)}, {"ContactIDNum", "-1"}})),
        contactEntry(addTestRow("Schedule", "ScheduleID",
                                {{"ClientNum", "-1"}, {"ContactIDNum", text(contact)}})) {}

  Id addRowFor(const char* link, Id item, Id companyId = noId, Id contactId = noId) {
    return addTestRow(
        "ClientNotification", "ClientNotificationID",
        {{link, text(item)}, {"CompanyIDNum", text(companyId)}, {"ContactIDNum", text(contactId)}});
  }

  Id company, clientData, contact, companyEntry, contactEntry;
};

TEST_F(Clients, OfAScheduleEntry) {
  EXPECT_EQ(getCompanyIDFromScheduleID(companyEntry), company);
  EXPECT_EQ(getCompanyIDFromScheduleID(contactEntry), noId);
  EXPECT_EQ(getCompanyIDFromScheduleID(999), noId);
  EXPECT_EQ(getCompanyNameFromScheduleID(companyEntry), "Maple Ltd");
  EXPECT_EQ(getCompanyNameFromScheduleID(contactEntry), "");
  addTestRow("archiveSchedule", "archiveScheduleID",
             {{"oldScheduleID", "900"}, {"ClientNum", text(clientData)}});
  EXPECT_EQ(getCompanyIDFromScheduleID(900), company);
  EXPECT_EQ(getCompanyNameFromScheduleID(900), "Maple Ltd");
}

TEST_F(Clients, TypeIsThatOfTheEntry) {
  const Id stranger = addTestRow("Schedule", "ScheduleID", {{"ContactIDNum", "7777"}});
  EXPECT_EQ(getClientTypeFromNotificationID(addRowFor("ScheduleIDNum", companyEntry)),
            enumAutoNotifyCompany);
  EXPECT_EQ(getClientTypeFromNotificationID(addRowFor("ScheduleIDNum", contactEntry)),
            enumAutoNotifyContact);
  EXPECT_EQ(getClientTypeFromNotificationID(addRowFor("ScheduleIDNum", stranger)), 0);
  EXPECT_EQ(getClientTypeFromNotificationID(addRowFor("ApptIDNum", 3)), 0);
  EXPECT_EQ(getClientTypeFromNotificationID(999), 0);
}

TEST_F(Clients, LinkedItemComesBeforeTheRowsOwnIds) {
  addTestRow("archiveSchedule", "archiveScheduleID",
             {{"oldScheduleID", "900"}, {"ClientNum", text(clientData)}, {"ContactIDNum", "41"}});
  const RowFields five{{"CompanyIDNum", "5"}, {"ContactIDNum", "6"}};
  const Id appointment = addTestRow("Appointments", "AppointmentID", five);
  const Id task = addTestRow("Tasks", "TaskID", five);
  const Id docket = addTestRow("Dockets", "DocketID", five);
  const Id bareTask = addTestRow("Tasks", "TaskID", {{"Subject", "x"}});
  struct Case {
    const char* link;
    Id item;
    Id companyId;
    Id contactId;
  };
  const Case cases[] = {
      {"ScheduleIDNum", companyEntry, company, 9},
      {"ScheduleIDNum", contactEntry, 8, contact},
      {"ScheduleIDNum", 900, company, 41},
      {"ScheduleIDNum", 12345, 8, 9},
      {"ApptIDNum", appointment, 5, 6},
      {"TaskIDNum", task, 5, 6},
      {"DocketIDNum", docket, 5, 6},
      {"TaskIDNum", bareTask, 8, 9},
      {"OperatingProcedureIDNum", 3, 8, 9},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.link << " " << c.item);
    const Id row = addRowFor(c.link, c.item, 8, 9);
    EXPECT_EQ(getCompanyIDFromAutoNotificationID(row), c.companyId);
    EXPECT_EQ(getContactIDFromAutoNotificationID(row), c.contactId);
  }
  EXPECT_EQ(getCompanyIDFromAutoNotificationID(999), noId);

  const auto both = getCompanyAndContactIDFromNotificationID;
  EXPECT_EQ(both(companyEntry, task, appointment, docket), (CompanyAndContactID{company, noId}));
  EXPECT_EQ(both(contactEntry, task, -1, -1), (CompanyAndContactID{noId, contact}));
  EXPECT_EQ(both(-1, task, -1, docket), (CompanyAndContactID{5, 6}));
  EXPECT_EQ(both(-1, -1, appointment, docket), (CompanyAndContactID{5, 6}));
  EXPECT_EQ(both(-1, -1, -1, docket), (CompanyAndContactID{5, 6}));
  EXPECT_EQ(both(-1, bareTask, appointment, docket), CompanyAndContactID{});
  EXPECT_EQ(both(-1, -1, -1, -1), CompanyAndContactID{});
}

// Copying and deleting.

class Copying : public StoreTest {
 protected:
  Id addRow(Id schedule, int channel, const std::string& mark, const std::string& field1 = {}) {
    RowFields fields{
        {"ScheduleIDNum", text(schedule)}, {"NotificationType", text(channel)}, {"Field1", field1}};
    for (const char* column : {"Field2", "Field3", "Field4", "Field5", "Field6", "Memo"}) {
      fields.emplace_back(column, mark + column);
    }
    return addTestRow("ClientNotification", "ClientNotificationID", fields);
  }
  std::string fieldsOf(Id row) {
    std::string all;
    for (const char* column :
         {"Field1", "Field2", "Field3", "Field4", "Field5", "Field6", "Memo"}) {
      const Value value =
          valueOf("ClientNotification", column, "ClientNotificationID=" + text(row));
      all += (value.isNull() ? "" : toText(value)) + "|";
    }
    return all;
  }
};

TEST_F(Copying, BySheduleKeepsSubjectTextAndEmptyOldFields) {
  struct Case {
    int channel;
    const char* expected;
  };
  const Case cases[] = {
      {nt_Email, "new|oldField2|oldField3|newField4|oldField5|oldField6|newMemo|"},
      {nt_Fax, "new|oldField2|oldField3|oldField4|oldField5|newField6|newMemo|"},
      {nt_Phone, "new|oldField2|oldField3|oldField4|oldField5|oldField6|newMemo|"},
  };
  for (const Case& c : cases) {
    addRow(70, c.channel, "old");
    const Id row = addRow(71, c.channel, "new", "new");
    calls().reset();
    calls().record(true);
    copyOldNotificationInfoToNewNotificationByScheduleIDNum(row, 70);
    EXPECT_EQ(fieldsOf(row), c.expected);
    EXPECT_THAT(logged("updateFieldValue"),
                Not(Contains(HasSubstr("ClientNotificationModifiedStamp"))));
  }
  const Id lone = addRow(71, nt_Letter, "new");
  const std::string before = fieldsOf(lone);
  copyOldNotificationInfoToNewNotificationByScheduleIDNum(lone, 70);
  copyOldNotificationInfoToNewNotificationByScheduleIDNum(999, 70);
  EXPECT_EQ(fieldsOf(lone), before) << "no old row of the channel";
}

TEST_F(Copying, ById_TheUnfinishedStatementIsRefused) {
  const Id old = addRow(70, nt_Email, "old", "to");
  const Id row = addRow(71, nt_Email, "new", "new");
  const std::string before = fieldsOf(row);
  calls().record(true);
  errors().answer({error_choice::leave});
  copyOldNotificationInfoToNewNotification(row, old);
  EXPECT_THAT(logged("openRecordset"),
              ElementsAre("1,3 SELECT ClientNotification.* FROM ClientNotification "
                          "ClientNotificationID=" +
                          text(row) + ";"));
  EXPECT_EQ(errors().dialogs(), 1);
  EXPECT_EQ(fieldsOf(row), before);
  // Going on past open, test and close.
  errors().answer({error_choice::next, error_choice::next, error_choice::next});
  copyOldNotificationInfoToNewNotification(row, old);
  EXPECT_EQ(errors().answersLeft(), 0u);
  EXPECT_EQ(fieldsOf(row), before);
}

/// An engine that reads a bare condition as a selection.
class LenientDatabase : public CountedDatabase {
 public:
  using CountedDatabase::CountedDatabase;
  RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock, int r1,
                                const std::string& r2, int r3, bool r4) override {
    const std::string bare = "FROM ClientNotification ClientNotificationID=";
    std::string read = sql;
    const auto at = read.find(bare);
    if (at != std::string::npos) {
      read.replace(at, bare.size(), "FROM ClientNotification WHERE ClientNotificationID=");
    }
    return CountedDatabase::openRecordset(read, cursor, lock, r1, r2, r3, r4);
  }
};

TEST_F(Copying, ById_CopiesOnAnEngineThatTakesTheStatement) {
  const Id old = addRow(70, nt_Email, "old", "to");
  const Id row = addRow(71, nt_Email, "new", "new");
  HostCalls uncounted;
  LenientDatabase lenient(database(), uncounted);
  DatabaseReference* strict = std::exchange(references().databaseReference, &lenient);
  copyOldNotificationInfoToNewNotification(row, old);
  EXPECT_EQ(fieldsOf(row), "to|oldField2|oldField3|newField4|oldField5|oldField6|newMemo|");
  const std::string copied = fieldsOf(row);
  for (const Id none : {Id{0}, noId, Id{999}}) copyOldNotificationInfoToNewNotification(row, none);
  EXPECT_EQ(fieldsOf(row), copied);
  references().databaseReference = strict;
}

TEST_F(Copying, DeleteTellsWhetherItDid) {
  const Id entry = addTestRow("Schedule", "ScheduleID", {{"notifyType", "1"}});
  const Id row = addRow(entry, nt_Email, "x");
  const Id other = addRow(entry, nt_Fax, "y");
  EXPECT_FALSE(deleteNotification(999));
  EXPECT_TRUE(deleteNotification(row));
  EXPECT_FALSE(deleteNotification(row));
  EXPECT_EQ(rowCount("ClientNotification", "ClientNotificationID=" + text(other)), 1);
  EXPECT_EQ(toInteger(valueOf("Schedule", "notifyType", "ScheduleID=" + text(entry))), 1)
      << "the bit is the caller's";
  closeDatabase();
  EXPECT_FALSE(deleteNotification(other));
  openDatabase();
}

// Host classes.

class FakeClientID : public ClientIDClass {
 public:
  void put_errorClass(errorClass* value) override { errors = value; }
  void put_DatabaseReference(DatabaseReference* value) override { database = value; }
  void put_clientDropDownCtrlReference(clientDropDownCtrlReference* value) override {
    clients = value;
  }
  errorClass* errors = nullptr;
  DatabaseReference* database = nullptr;
  clientDropDownCtrlReference* clients = nullptr;
};

TEST_F(Links, HostClassesGetTheirServices) {
  errors().answer({error_choice::leave});
  EXPECT_EQ(ClientIDClassInit(), nullptr) << "the registry does not know it yet";
  EXPECT_EQ(errors().recorded().back().number, error_number::cannotCreateObject);
  registry().registerClass<FakeClientID>();
  const auto object = ClientIDClassInit();
  const auto* client = dynamic_cast<FakeClientID*>(object.get());
  ASSERT_TRUE(client);
  EXPECT_EQ(client->errors, references().errors);
  EXPECT_EQ(client->database, references().databaseReference);
  EXPECT_EQ(client->clients, references().clientDropDown);
}

}  // namespace
}  // namespace autonotify::test
