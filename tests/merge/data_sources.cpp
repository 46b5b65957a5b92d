#include <algorithm>

#include "merge/merge_host.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;

constexpr const char* softwareSelect =
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True";

class DataSources : public MergeHost {
 protected:
  /// A client that is a company with one of everything.
  void addClient() {
    merge->companyID = addRow("Companies", "CompanyID", {{"CompanyName", "Elm Ltd."}});
    const string company = std::to_string(merge->companyID);
    addRow("ClientData", "ClientDataID", {{"CompanyIDNum", company.c_str()}});
    addRow("SoftwareInfo", "SoftwareInfoID",
           {{"CompanyIDNum", company.c_str()},
            {"CompanyID", company.c_str()},
            {"DefaultSoftware", "True"},
            {"SoftwareName", "Ledger 9"}});
  }

  /// The statements opened by one operation, with their modes.
  template <class Operation>
  vector<string> opened(Operation operation) {
    beginRecord();
    operation();
    vector<string> statements = callsOf("openRecordset");
    std::erase_if(statements, [](const string& sql) {
      return sql.ends_with("FROM CustomFields;") || sql.ends_with("FROM CustomAddressFields;");
    });
    return statements;
  }
};

TEST_F(DataSources, OpensEverySourceOfASingleDocumentInOrder) {
  addClient();
  merge->contactID = 12;
  merge->firmID = 13;
  merge->userID = 14;
  merge->appointmentID = 15;
  merge->docketId = 16;
  merge->taskID = 17;
  vector<string> statements = opened([&] { merge->initializeDataRecordsetsForSingleDocMerge(); });
  ASSERT_EQ(statements.size(), 10U);
  EXPECT_TRUE(statements[0].starts_with("1,1 SELECT Clients.ClientID, AccountingServices.*, "));
  statements.erase(statements.begin());
  EXPECT_EQ(
      statements,
      (vector<string>{
          "1,1 SELECT Companies.*, Companies.Custom1 AS CompanyCustom1, Companies.Custom2 AS "
          "CompanyCustom2, Companies.Custom3 AS CompanyCustom3, Companies.Custom4 AS "
          "CompanyCustom4, Companies.Custom5 AS CompanyCustom5 From Companies WHERE "
          "Companies.CompanyID=1;",
          "1,1 " + string(softwareSelect) + " AND SoftwareInfo.CompanyIDNum=1;",
          "1,1 SELECT Contacts.*, Contacts.Custom1 AS ContactCustom1, Contacts.Custom2 AS "
          "ContactCustom2, Contacts.Custom3 AS ContactCustom3, Contacts.Custom4 AS "
          "ContactCustom4, Contacts.Custom5 AS ContactCustom5 From Contacts WHERE "
          "Contacts.ContactID=12;",
          "1,1 SELECT AccountantFirmInfo.*, AccountantFirmInfo.Custom1 AS FirmCustom1, "
          "AccountantFirmInfo.Custom2 AS FirmCustom2, AccountantFirmInfo.Custom3 AS FirmCustom3, "
          "AccountantFirmInfo.Custom4 AS FirmCustom4, AccountantFirmInfo.Custom5 AS FirmCustom5 "
          "From AccountantFirmInfo WHERE CompanyID=13;",
          "1,1 SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo WHERE ContactID=14;",
          "1,1 SELECT Appointments.*, Appointments.Custom1 AS ApptCustom1, Appointments.Custom2 AS "
          "ApptCustom2, Appointments.Custom3 AS ApptCustom3, Appointments.Custom4 AS ApptCustom4, "
          "Appointments.Custom5 AS ApptCustom5 From Appointments WHERE "
          "Appointments.AppointmentID=15;",
          "1,1 SELECT Dockets.*, Dockets.Custom1 AS DocketCustom1, Dockets.Custom2 AS "
          "DocketCustom2, Dockets.Custom3 AS DocketCustom3, Dockets.Custom4 AS DocketCustom4, "
          "Dockets.Custom5 AS DocketCustom5 From Dockets WHERE Dockets.DocketID=16;",
          "1,1 SELECT Schedule.*, Tasks.*, Schedule.Custom1 AS ScheduleCustom1, Schedule.Custom2 "
          "AS ScheduleCustom2, Schedule.Custom3 AS ScheduleCustom3, Schedule.Custom4 AS "
          "ScheduleCustom4, Schedule.Custom5 AS ScheduleCustom5, Tasks.Custom1 AS TaskCustom1, "
          "Tasks.Custom2 AS TaskCustom2, Tasks.Custom3 AS TaskCustom3, Tasks.Custom4 AS "
          "TaskCustom4, Tasks.Custom5 AS TaskCustom5 FROM Schedule INNER JOIN Tasks ON "
          "Schedule.ScheduleID = Tasks.ScheduleIDNum WHERE Tasks.TaskID=17;",
          "1,1 SELECT Tasks.*, Tasks.Custom1 AS TaskCustom1, Tasks.Custom2 AS TaskCustom2, "
          "Tasks.Custom3 AS TaskCustom3, Tasks.Custom4 AS TaskCustom4, Tasks.Custom5 AS "
          "TaskCustom5 FROM Tasks WHERE Tasks.TaskID=17;",
      }));
}

TEST_F(DataSources, OpensForUpdateForTheUseThatWrites) {
  merge->put_MergeFieldListUse(5);
  merge->contactID = 12;
  const vector<string> statements =
      opened([&] { merge->initializeDataRecordsetsForSingleDocMerge(); });
  ASSERT_EQ(statements.size(), 2U);
  EXPECT_TRUE(statements[0].starts_with("1,3 SELECT Contacts.*"));
  EXPECT_EQ(statements[1], "1,3 " + string(softwareSelect) + " AND SoftwareInfo.ContactIDNum=12;");
}

TEST_F(DataSources, ClosesWhatASetUpLeftOpenBeforeTheNext) {
  addClient();
  merge->initializeDataRecordsetsForSingleDocMerge();
  merge->resetAllItemIDs();
  EXPECT_TRUE(opened([&] { merge->initializeDataRecordsetsForSingleDocMerge(); }).empty());
  const auto& log = host.calls.log();
  const auto labelReads = static_cast<std::ptrdiff_t>(callsOf("openRecordset").size());
  EXPECT_EQ(std::count(log.begin(), log.end(), "closeRecordset") - labelReads, 3);
}

TEST_F(DataSources, OpensOnFirstReadAndKeepsOpen) {
  addClient();
  listFields(8);
  const vector<string> statements = opened([&] {
    EXPECT_EQ(valueOf("Company Name"), "Elm Ltd.");
    EXPECT_EQ(valueOf("Company Name"), "Elm Ltd.");
  });
  EXPECT_EQ(statements,
            (vector<string>{
                "0,1 SELECT Companies.*, Companies.Custom1 AS CompanyCustom1, Companies.Custom2 AS "
                "CompanyCustom2, Companies.Custom3 AS CompanyCustom3, Companies.Custom4 AS "
                "CompanyCustom4, Companies.Custom5 From Companies WHERE Companies.CompanyID=1;",
                "0,1 " + string(softwareSelect) + " AND SoftwareInfo.CompanyIDNum=1;"}));
  EXPECT_EQ(forms.pumps, 4) << "twice a read";
}

TEST_F(DataSources, FindsRowsInWholeTablesForABulkMerge) {
  addRow("Contacts", "ContactID", {{"DisplayName", "Ben Oak"}});
  merge->contactID = addRow("Contacts", "ContactID", {{"DisplayName", "Anna Lee"}});
  merge->put_MergeFieldListUse(2);
  listFields(8);
  const vector<string> statements = opened([&] {
    EXPECT_EQ(valueOf("Contact Display Name"), "Anna Lee");
    merge->contactID = 1;
    EXPECT_EQ(valueOf("Contact Display Name"), "Ben Oak");
    merge->contactID = 77;
    EXPECT_EQ(valueOf("Contact Display Name"), "") << "not found, not read";
  });
  ASSERT_EQ(statements.size(), 2U);
  EXPECT_TRUE(statements[0].starts_with("1,1 SELECT Contacts.*"));
  EXPECT_TRUE(statements[0].ends_with(" From Contacts;"));
  EXPECT_EQ(statements[1], "1,1 " + string(softwareSelect) + ";");
  EXPECT_EQ(callsOf("findRecord"), (vector<string>{"ContactID=2", "ContactID=1", "ContactID=77"}));
}

TEST_F(DataSources, SearchesTheNotesOfAllCompaniesByTheirOldColumn) {
  merge->companyID = 5;
  addRow("CompaniesNotes", "CompaniesNoteID",
         {{"CompanyNum", "5"}, {"ComapnyNum", "5"}, {"Notes", "Prefers email"}});
  merge->put_MergeFieldListUse(2);
  listFields(8);
  beginRecord();
  EXPECT_EQ(valueOf("Company Notes"), "Prefers email");
  EXPECT_EQ(callsOf("openRecordset"),
            vector<string>{"1,1 SELECT CompaniesNotes.* From CompaniesNotes;"});
  EXPECT_EQ(callsOf("findRecord"), vector<string>{"ComapnyNum=5"});
}

TEST_F(DataSources, ReadsTheFirmFromItsOneRowAlsoInABulkMerge) {
  merge->firmID = addRow("AccountantFirmInfo", "CompanyID", {{"CompanyName", "Birch LLP"}});
  merge->put_MergeFieldListUse(2);
  listFields(8);
  const vector<string> statements =
      opened([&] { EXPECT_EQ(valueOf("Your Company Name"), "Birch LLP"); });
  ASSERT_EQ(statements.size(), 1U);
  EXPECT_TRUE(statements[0].starts_with("0,1 SELECT AccountantFirmInfo.*"));
  EXPECT_TRUE(statements[0].ends_with(
      "AccountantFirmInfo.Custom5 From AccountantFirmInfo WHERE CompanyID=1;"));
}

TEST_F(DataSources, ReadsSoftwareOnlyWhenAClientsRecordHasOpenedIt) {
  addClient();
  listFields(8);
  EXPECT_EQ(valueOf("Software Name"), "");
  EXPECT_EQ(valueOf("Company Name"), "Elm Ltd.");
  EXPECT_EQ(valueOf("Software Name"), "Ledger 9");
}

TEST_F(DataSources, ReadsSoftwareOfABulkMergeWhereItStands) {
  addRow("SoftwareInfo", "SoftwareInfoID",
         {{"CompanyID", "9"}, {"DefaultSoftware", "True"}, {"SoftwareName", "Abacus"}});
  addClient();
  listFields(8);
  merge->initializeDataRecordsetsForSingleDocMerge();
  EXPECT_EQ(valueOf("Software Name"), "Ledger 9");
  merge->put_MergeFieldListUse(2);
  const vector<string> statements = opened([&] {
    EXPECT_EQ(valueOf("Software Name"), "Abacus");
    EXPECT_EQ(valueOf("Software Name"), "Abacus");
  });
  EXPECT_EQ(statements, vector<string>{"1,1 " + string(softwareSelect) + ";"});
}

TEST_F(DataSources, NamesTheFifthCustomFieldInTheSetUpAlone) {
  merge->companyID = addRow("Companies", "CompanyID", {{"Custom1", "One"}, {"Custom5", "Five"}});
  listFields(8);
  EXPECT_EQ(valueOf("Company Custom Field 1"), "One");
  host.errors.answer({error_choice::next});
  EXPECT_EQ(valueOf("Company Custom Field 5"), "");
  merge->initializeDataRecordsetsForSingleDocMerge();
  EXPECT_EQ(valueOf("Company Custom Field 5"), "Five");
}

TEST_F(DataSources, MergesATaskThatHasNoScheduleEntry) {
  merge->taskID = addRow("Tasks", "TaskID", {{"Subject", "Call back"}, {"TimeFrom", "9:30"}});
  merge->ListType = 8;
  for (const bool isSetUp : {false, true}) {
    if (isSetUp) {
      merge->initializeDataRecordsetsForSingleDocMerge();
    } else {
      listFields(8);
    }
    EXPECT_EQ(valueOf("Task Name"), "Call back");
    EXPECT_EQ(valueOf("Task Start Time"), "9:30 am");
    host.errors.answer({error_choice::next});
    EXPECT_EQ(valueOf("Period Description"), "");
  }
}

TEST_F(DataSources, GivesNothingForIdsThatAreNotSetOrWithAClosedDatabase) {
  listFields(8);
  beginRecord();
  for (const char* name : {"Task Name", "Company Name", "Contact Display Name", "Your Company Name",
                           "Business Number", "Client Documents & Instructions"})
    EXPECT_EQ(valueOf(name), "") << name;
  EXPECT_TRUE(callsOf("openRecordset").empty());
}

TEST_F(DataSources, DoesNotReadTheAccountsOfSomebodyElse) {
  addClient();
  addRow("AccountingServices", "AccountingServiceID", {{"BusinessNumber", "123456789"}});
  for (const auto& [table, key] : {std::pair{"ClientOptions", "ClientOptionID"},
                                   {"CorpTaxInfo", "CorpTaxInfoID"},
                                   {"LawInfo", "LawInfoID"},
                                   {"OtherInfo", "OtherInfoID"},
                                   {"WSIB_EHTInfo", "WSIB_EHTInfoID"}})
    addRow(table, key, {});
  addRow("CompaniesNotes", "CompaniesNoteID", {{"CompanyNum", "1"}});
  addRow("Clients", "ClientID", {{"CompanyIDNum", "1"}});
  listFields(8);
  EXPECT_EQ(valueOf("Business Number"), "123456789");
  merge->companyID = 0;
  merge->initializeDataRecordsetsForSingleDocMerge();
  EXPECT_EQ(valueOf("Business Number"), "");
}

}  // namespace
}  // namespace autonotify::test
