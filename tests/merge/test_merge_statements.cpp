// The statements that open a merge's records, letter by letter.
#include "merge/MergeTest.h"
#include "platform/text.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;

/// All columns of the table, and its five custom ones under names of their own.
string columnsOf(const string& table, const string& prefix) {
  string columns;
  for (const char* digit : {"1", "2", "3", "4", "5"})
    columns += ", " + table + ".Custom" + digit + " AS " + prefix + "Custom" + digit;
  return columns;
}
string allOf(const string& table, const string& prefix) {
  return "SELECT " + table + ".*" + columnsOf(table, prefix) + " From " + table;
}

// Up to the id; the ids are 1 to 7 in the order of the properties.
const string company = allOf("Companies", "Company") + " WHERE Companies.CompanyID=1;";
const string software =
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
    "SoftwareInfo.CompanyIDNum=1;";
const string companyNotes =
    "SELECT CompaniesNotes.* From CompaniesNotes WHERE CompaniesNotes.CompanyNum=1;";
const string contact = allOf("Contacts", "Contact") + " WHERE Contacts.ContactID=2;";
const string contactNotes =
    "SELECT ContactsNotes.* From ContactsNotes WHERE ContactsNotes.ContactNum=2;";
const string firm = allOf("AccountantFirmInfo", "Firm") + " WHERE CompanyID=3;";
const string employee =
    "SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo WHERE ContactID=4;";
const string appointment = allOf("Appointments", "Appt") + " WHERE Appointments.AppointmentID=5;";
const string docket = allOf("Dockets", "Docket") + " WHERE Dockets.DocketID=6;";
const string task = "SELECT Schedule.*, Tasks.*" + columnsOf("Schedule", "Schedule") +
                    columnsOf("Tasks", "Task") +
                    " FROM Schedule INNER JOIN Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum "
                    "WHERE Tasks.TaskID=7;";
const string taskAlone =
    "SELECT Tasks.*" + columnsOf("Tasks", "Task") + " FROM Tasks WHERE Tasks.TaskID=7;";

const string accountsInCanada =
    "SELECT Clients.ClientID, AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, "
    "CorpTaxInfo.*, LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*, CompaniesNotes.BusinessNotes, "
    "CompaniesNotes.ContactNotes FROM ((((((Companies INNER JOIN ((ClientData INNER JOIN "
    "AccountingServices ON ClientData.ClientDataID = AccountingServices.AccountingServiceID) INNER "
    "JOIN ClientOptions ON ClientData.ClientDataID = ClientOptions.ClientOptionID) ON "
    "Companies.CompanyID = ClientData.CompanyIDNum) INNER JOIN CorpTaxInfo ON "
    "ClientData.ClientDataID = CorpTaxInfo.CorpTaxInfoID) INNER JOIN LawInfo ON "
    "ClientData.ClientDataID = LawInfo.LawInfoID) INNER JOIN OtherInfo ON ClientData.ClientDataID "
    "= OtherInfo.OtherInfoID) INNER JOIN WSIB_EHTInfo ON ClientData.ClientDataID = "
    "WSIB_EHTInfo.WSIB_EHTInfoID) INNER JOIN CompaniesNotes ON Companies.CompanyID = "
    "CompaniesNotes.CompanyNum) INNER JOIN Clients ON Companies.CompanyID = Clients.CompanyIDNum ";
const string accountsElsewhere =
    "SELECT Clients.ClientID, AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, "
    "ClientUSInfo.*, CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes FROM ((ClientUSInfo "
    "INNER JOIN (Companies INNER JOIN ((ClientData INNER JOIN AccountingServices ON "
    "ClientData.ClientDataID = AccountingServices.AccountingServiceID) INNER JOIN ClientOptions ON "
    "ClientData.ClientDataID = ClientOptions.ClientOptionID) ON Companies.CompanyID = "
    "ClientData.CompanyIDNum) ON ClientUSInfo.ClientUSInfoID = ClientData.ClientDataID) INNER JOIN "
    "CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum) INNER JOIN Clients ON "
    "Companies.CompanyID = Clients.CompanyIDNum ";

class MergeStatements : public MergeTest {
 protected:
  MergeStatements() {
    addRow("ClientData", {{"CompanyIDNum", "1"}});
    plainClients.setListOrder(4);
  }

  void startAnew(int use) {
    merge = std::make_unique<clsInsertFieldsInRTB>();
    merge->put_MergeFieldListUse(use);
    Id next = 0;
    for (Id* id : {&merge->companyID, &merge->contactID, &merge->firmID, &merge->userID,
                   &merge->appointmentID, &merge->docketId, &merge->taskID})
      *id = ++next;
  }

  /// The run's statements with cursor and lock, but for those that read labels.
  template <class Run>
  vector<string> sourcesOpenedBy(Run run) {
    auto statements = statementsOf(run);
    std::erase_if(statements,
                  [](const string& sql) { return sql.find("FROM Custom") != sql.npos; });
    return statements;
  }

  /// The statements of a merge that reads a field of each source.
  vector<string> readOnDemand(int use) {
    startAnew(use);
    return sourcesOpenedBy([&] {
      build(8, use);
      print("Payroll Number|Company Name|Company Notes|Contact Gender|Contact Notes|Your City");
      print("Task Name");
      build(5, use);
      print("Appointment Name");
      build(6, use);
      print("Time Entry Name");
    });
  }
};

const string byNumber = "ORDER BY Companies.ClientIDStr, Companies.CompanyName;";

vector<string> inMode(const string& mode, vector<string> statements) {
  for (string& sql : statements) sql.insert(0, mode + " ");
  return statements;
}

TEST_F(MergeStatements, OfASetUp) {
  for (const auto& [country, use, mode, accounts] :
       {std::tuple{1, 1, "1,1", accountsInCanada}, {2, 5, "1,3", accountsElsewhere}}) {
    live(country, 3);
    startAnew(use);
    EXPECT_EQ(
        sourcesOpenedBy([&] { merge->initializeDataRecordsetsForSingleDocMerge(); }),
        inMode(mode, {accounts + "WHERE ClientData.ClientDataID=1 " + byNumber, company, software,
                      contact, firm, employee, appointment, docket, task, taskAlone}));
  }
}

TEST_F(MergeStatements, OnDemandLeaveTheFifthColumnsOfCompanyAndFirmUnnamed) {
  const string shortCompany = replaceAll(company, " AS CompanyCustom5", "");
  const string shortFirm = replaceAll(firm, " AS FirmCustom5", "");
  EXPECT_EQ(readOnDemand(1),
            inMode("0,1", {accountsInCanada + "WHERE ClientData.ClientDataID=1 " + byNumber,
                           shortCompany, software, companyNotes, contact, contactNotes, shortFirm,
                           task, taskAlone, appointment, docket}));
  vector<string> wholeTables = {accountsInCanada + byNumber};
  for (const string& sql :
       {shortCompany, software, companyNotes, contact, contactNotes, task, appointment, docket})
    wholeTables.push_back(sql.substr(0, sql.rfind(sql == software ? " AND " : " WHERE ")) + ";");
  vector<string> expected = inMode("1,1", wholeTables);
  expected.insert(expected.begin() + 6, "0,1 " + shortFirm);
  EXPECT_EQ(readOnDemand(2), expected);
}

TEST_F(MergeStatements, OfAContactAloneReadTheContactsSoftware) {
  merge->contactID = 2;
  EXPECT_EQ(sourcesOpenedBy([&] { merge->initializeDataRecordsetsForSingleDocMerge(); }),
            inMode("1,1", {contact, replaceAll(software, "CompanyIDNum=1", "ContactIDNum=2")}));
}

TEST_F(MergeStatements, SelectsAndOrdersTheAccountsThatTheClientListShows) {
  const string shown = "WHERE ClientData.ShowThisClient = True";
  for (const auto& [showOnly, statusMode, id, order, tail] :
       {std::tuple{true, 1, -1, 0, shown + " AND ClientData.ActiveStatus=1 ;"},
        {true, 3, 0, 0, shown + " AND ClientData.ClientDataID=0 ;"},
        {false, 2, -1, 5, "WHERE NOT ClientData.ActiveStatus=1 ;"},
        {false, 3, -1, 1, "Clients.CompanyIDNum ORDER BY Companies.CompanyName;"},
        {false, 3, -1, 2, "ORDER BY Companies.CorporateName;"}}) {
    plainClients.setListOrder(order);
    EXPECT_THAT(getMainBusinessSQLString(showOnly, statusMode, id), testing::EndsWith(tail));
  }
}

}  // namespace
}  // namespace autonotify::test
