#include <algorithm>

#include "merge/MergeTest.h"
#include "merge/modCodeTexts.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;

class MergeData : public MergeTest {
 protected:
  /// A company with one of everything that its accounts are joined of.
  Id addAccountingClient(const RowFields& services = {}, const RowFields& tax = {}) {
    const Id company = addRow("Companies", {{"CompanyName", "Elm Ltd."}});
    addRow("ClientData", {{"CompanyIDNum", company}});
    addRow("Clients", {{"CompanyIDNum", company}});
    addRow("CompaniesNotes", {{"CompanyNum", company}});
    addRow("AccountingServices", services);
    addRow("CorpTaxInfo", tax);
    for (const char* table :
         {"ClientOptions", "LawInfo", "OtherInfo", "WSIB_EHTInfo", "ClientUSInfo"})
      addRow(table, {});
    const RowFields keys{{"CompanyIDNum", company}, {"CompanyID", company}};
    RowFields software{{"DefaultSoftware", "True"}, {"SoftwareName", "Ledger 9"}};
    software.insert(software.end(), keys.begin(), keys.end());
    addRow("SoftwareInfo", software);
    return company;
  }

  void setUp() { merge->initializeDataRecordsetsForSingleDocMerge(); }

  /// What an operation opens: the modes, the table read and what follows WHERE.
  template <class Operation>
  vector<string> opened(Operation operation) {
    vector<string> sources;
    for (const string& sql : statementsOf(operation)) {
      if (sql.find("FROM Custom") != string::npos) continue;  // the labels
      const string table = sql.substr(11, sql.find_first_of(". ", 11) - 11);
      const std::size_t where = sql.find(" WHERE ");
      sources.push_back(sql.substr(0, 4) + table + (where == sql.npos ? ";" : sql.substr(where)));
    }
    return sources;
  }
};

constexpr char softwareOf[] =
    " SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND SoftwareInfo.";

/// A field that names no column of its source would ask the person, which fails the test.
TEST_F(MergeData, EveryFieldReadsFromItsRecord) {
  addAccountingClient();
  for (const char* table : {"Contacts", "AccountantFirmInfo", "Schedule"}) addRow(table, {});
  addRow("ContactsNotes", {{"ContactNum", "1"}});
  addRow("Tasks", {{"ScheduleIDNum", "1"}});
  for (const char* table : {"Appointments", "Dockets"})
    addRow(table, {{"TimeFrom", "9:00"}, {"TimeTo", "10:30"}});
  std::size_t read = 0;
  for (const auto& [country, use] : {std::pair{1, 1}, {1, 3}, {2, 1}, {2, 3}})
    for (const int listType : {5, 6, 8}) {
      live(country, 3);
      merge = std::make_unique<clsInsertFieldsInRTB>();
      for (Id* id : {&merge->companyID, &merge->contactID, &merge->firmID, &merge->appointmentID,
                     &merge->docketId, &merge->taskID})
        *id = 1;
      merge->ListType = listType;
      merge->put_MergeFieldListUse(use);
      setUp();
      for (const string& name : column(field_column::displayName)) {
        print(name);
        ASSERT_EQ(errors.dialogs(), 0) << name << " in " << country;
        ++read;
      }
    }
  EXPECT_GT(read, 2000U);
}

TEST_F(MergeData, OpensEverySourceOfASingleDocumentInOrderAndClosesIt) {
  merge->companyID = addAccountingClient();
  merge->contactID = 12;
  merge->firmID = 13;
  merge->userID = 14;
  merge->appointmentID = 15;
  merge->docketId = 16;
  merge->taskID = 17;
  const auto closed = [&] {
    return std::count(calls.log().begin(), calls.log().end(), "closeRecordset");
  };
  plainClients.setListOrder(0);
  EXPECT_EQ(
      opened([&] { setUp(); }),
      (vector<string>{"1,1 Clients WHERE ClientData.ClientDataID=1 ;",
                      "1,1 Companies WHERE Companies.CompanyID=1;",
                      string("1,1") + softwareOf + "CompanyIDNum=1;",
                      "1,1 Contacts WHERE Contacts.ContactID=12;",
                      "1,1 AccountantFirmInfo WHERE CompanyID=13;",
                      "1,1 AccountantEmployeeInfo WHERE ContactID=14;",
                      "1,1 Appointments WHERE Appointments.AppointmentID=15;",
                      "1,1 Dockets WHERE Dockets.DocketID=16;",
                      "1,1 Schedule WHERE Tasks.TaskID=17;", "1,1 Tasks WHERE Tasks.TaskID=17;"}));
  merge->resetAllItemIDs();
  EXPECT_EQ(opened([&] { setUp(); }), vector<string>{});
  EXPECT_GE(closed(), 10) << "what the set-up before left open";
  merge->contactID = 12;
  merge->put_MergeFieldListUse(5);
  EXPECT_EQ(opened([&] { setUp(); }),
            (vector<string>{"1,3 Contacts WHERE Contacts.ContactID=12;",
                            string("1,3") + softwareOf + "ContactIDNum=12;"}));
  opened([&] {
    merge->Terminate();
    merge->Terminate();
  });
  EXPECT_EQ(closed(), 2);
}

TEST_F(MergeData, OpensOnFirstReadAndKeepsOpen) {
  merge->companyID = addAccountingClient();
  build(8);
  EXPECT_EQ(print("Software Name"), "") << "not before a client's record has opened it";
  windows.pumps = 0;
  EXPECT_EQ(opened([&] { EXPECT_EQ(print("Company Name|Company Name"), "Elm Ltd.|Elm Ltd."); }),
            (vector<string>{"0,1 Companies WHERE Companies.CompanyID=1;",
                            string("0,1") + softwareOf + "CompanyIDNum=1;"}));
  EXPECT_EQ(windows.pumps, 4) << "twice a read";
  EXPECT_EQ(print("Software Name"), "Ledger 9");
}

TEST_F(MergeData, FindsRowsInWholeTablesForABulkMerge) {
  addRow("Contacts", {{"DisplayName", "Ben Oak"}});
  addRow("Contacts", {{"DisplayName", "Anna Lee"}});
  addRow("CompaniesNotes", {{"CompanyNum", "5"}, {"ComapnyNum", "5"}, {"Notes", "By email"}});
  addRow("SoftwareInfo",
         {{"CompanyID", "9"}, {"DefaultSoftware", "True"}, {"SoftwareName", "Abacus"}});
  merge->firmID = addRow("AccountantFirmInfo", {{"CompanyName", "Birch LLP"}});
  merge->companyID = 5;
  build(8, 2);
  const auto sources = opened([&] {
    for (const auto& [contact, name] : {std::pair{2, "Anna Lee"}, {1, "Ben Oak"}, {77, ""}}) {
      merge->contactID = contact;
      EXPECT_EQ(print("Contact Display Name"), name);
    }
    EXPECT_EQ(print("Company Notes|Software Name|Your Company Name"), "By email|Abacus|Birch LLP");
  });
  EXPECT_EQ(
      sources,
      (vector<string>{"1,1 Contacts;", "1,1 SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True;",
                      "1,1 CompaniesNotes;", "0,1 AccountantFirmInfo WHERE CompanyID=1;"}));
  EXPECT_EQ(logged("findRecord"),
            (vector<string>{"ContactID=2", "ContactID=1", "ContactID=77", "ComapnyNum=5"}));
}

TEST_F(MergeData, NamesTheFifthCustomFieldInTheSetUpAlone) {
  merge->companyID = addRow("Companies", {{"Custom1", "One"}, {"Custom5", "Five"}});
  build(8);
  errors.answer({error_choice::next});
  EXPECT_EQ(print("Company Custom Field 1|Company Custom Field 5"), "One|");
  setUp();
  EXPECT_EQ(print("Company Custom Field 5"), "Five");
}

TEST_F(MergeData, MergesATaskThatHasNoScheduleEntryOrAppointment) {
  merge->taskID = addRow("Tasks", {{"Subject", "Call"}, {"TimeFrom", "9:30"}, {"TimeTo", "10:00"}});
  build(8);
  for (const char* why : {"read on demand", "set up"}) {
    errors.answer({error_choice::next, error_choice::next});
    EXPECT_EQ(print("Task Name|Task Start Time|Period Description|Time Duration"), "Call|9:30 am||")
        << why;
    setUp();
  }
  merge->appointmentID = addRow("Appointments", {{"TimeFrom", "9:00"}, {"TimeTo", "9:45"}});
  setUp();
  EXPECT_EQ(print("Time Duration"), "45 min") << "the appointment's";
}

TEST_F(MergeData, PrintsEachTypeInItsForm) {
  const RowFields docket{{"Subject", "Bookkeeping"},    {"DateFrom", "2026-04-30"},
                         {"TimeFrom", "14:05"},         {"TimeTo", "15:36"},
                         {"DocketLocked", "True"},      {"TotalTimeReal", "1.5"},
                         {"TotalAmountFinal", "0"},     {"TotalTimeRounded", "0.5167"},
                         {"TotalAmountReal", "1234.5"}, {"TotalAmountAdjusted", "-3"}};
  merge->docketId = addRow("Dockets", docket);
  merge->contactID =
      addRow("Contacts", {{"Birthday", "1899-06-01"}, {"Anniversary", "1900-01-01"}});
  build(6);
  EXPECT_EQ(print("Time Entry Date|Time Entry Date@dddd, mmmm d yyyy|Time Entry Start Time|"
                  "Time Entry Date Created|Contact Birthday@yyyy|Contact Anniversary@yyyy"),
            "Apr 30, 2026|Thursday, April 30 2026|2:05 pm||1899-06-01|1900");
  EXPECT_EQ(print("Time Entry Locked|Is Invoiced|Total Time (Actual)|Total Time (Rounded)|"
                  "Total Time (Final)|Total Amount (Actual)|Total Amount (Adjusted)|"
                  "Total Amount (Final)|Time Duration"),
            "Yes|No|1 hr 30 min|31 min||$1,234.50|$-3.00|$0.00|1 hr 31 min");
  const Value items[] = {"Subject", "When", "DocketInfo", 2, ""};
  merge->get_FieldList()->addEntry(1000, items);
  errors.answer({error_choice::next});
  EXPECT_EQ(print("When@d"), "Bookkeeping") << "a value that is not of its type";
}

TEST_F(MergeData, ShowsSamplesAsTheyStandWithoutAQuery) {
  merge->taskID = 1;
  listSamples({{"Due", "Jan 31, 2026", 2}, {"Paid", "$5.00", 4}, {"Two", "one\r\ntwo\r\n\r\nx\n"}});
  EXPECT_EQ(opened([&] {
              EXPECT_EQ(print("Due@yyyy|Paid"), "Jan 31, 2026|$5.00");
              EXPECT_EQ(print("Two"), "one\\par \r\ntwo\\par \r\n\\par \r\nx\n");
              merge->UseWordWrap = false;
              EXPECT_EQ(print("Two"), "one, \r\ntwo, \r\n, \r\nx\n");
              merge->ConvertStrToRTF = false;
              EXPECT_EQ(print("Two"), "one\r\ntwo\r\n\r\nx\n");
            }),
            vector<string>{});
}

TEST_F(MergeData, GivesAnInheritingContactTheAddressOfTheCompany) {
  const RowFields address{{"OfficeNumber", "555-1000"},
                          {"FaxNumber", "555-1001"},
                          {"Address", "1 Elm Street"},
                          {"City", "Guelph"},
                          {"Province", "Ontario"}};
  RowFields contact = {{"BusinessPhone_Main", "555-2000"},
                       {"BusinessAddress", "2 Oak Street"},
                       {"BusinessPostalCode", "N1G 2W1"},
                       {"BusinessProvince", "Quebec"},
                       {"FirstName", "Anna"},
                       {"InheritCompanyInfo", "False"}};
  const string fields =
      "Contact Business Phone|Contact Business Fax|Contact Business Address|Contact Business City|"
      "Contact Business Postal Code|Contact Business Province|"
      "Contact Business Abbreviated Province|Contact First Name";
  const string own = "555-2000||2 Oak Street||N1G 2W1|Quebec|QC|Anna";
  const Id company = addRow("Companies", address);
  const Id owning = addRow("Contacts", contact);
  contact.back().second = "True";
  const Id inheriting = addRow("Contacts", contact);
  build(8);
  for (const auto& [companyID, contactID, values] :
       {std::tuple{company, inheriting,
                   string("555-2000|555-1001|1 Elm Street|Guelph|N1G 2W1|Ontario|QC|Anna")},
        {noId, inheriting, own},
        {company, owning, own}}) {
    merge->companyID = companyID;
    merge->contactID = contactID;
    setUp();
    EXPECT_EQ(print(fields), values) << companyID << '/' << contactID;
  }
}

TEST_F(MergeData, DerivesNamesAndProvincesOfAContact) {
  merge->contactID = addRow("Contacts", {{"DisplayName", "Anna Lee"},
                                         {"HomeProvince", "british columbia"},
                                         {"AltProvince", "Bavaria"}});
  build(8);
  EXPECT_EQ(print("Contact & Spouse Name|Contact Alternate Abbreviated Province|"
                  "Contact Home Abbreviated Province"),
            "Anna Lee|Bavaria|BC");
  string name = "HOMEABBREVIATEDPROVINCE";
  EXPECT_EQ(merge->getDataFieldFromRecordset(name), "BC");
  EXPECT_EQ(name, "HOMEPROVINCE") << "the column that was read";
}

TEST_F(MergeData, PutsAccountingCodesInWords) {
  merge->companyID = addAccountingClient({{"RC59Permission", "2"},
                                          {"RC59Status", "1"},
                                          {"GSTFilingMethod", "3"},
                                          {"FinancialStatements", "5"},
                                          {"YearEndDate", "2025-06-30"}},
                                         {{"CorporationType", "1"}, {"CorporationLevel", "2"}});
  plainDatabase->connection().exec("UPDATE Companies SET CompanyType='2'");
  build(8);
  const string fields =
      "RC59 Permission Level|RC59 Form Status|HST Filing Method|Financial Statements|"
      "Corporation Type|Corporation Level|Year End Date|Company Type";
  EXPECT_EQ(print(fields),
            "Limited|Awaiting Signature|Quick Method|Audit|Regular Corporation|"
            "Provincial Corporation|June 30|2");
  string misspelt = "CompanType";
  EXPECT_EQ(merge->getDataFieldFromRecordset(misspelt), "Sole Proprietorship");
  merge->companyID = 0;
  setUp();
  EXPECT_EQ(print(fields), "|||||||") << "not of somebody else";
}

TEST_F(MergeData, DurationsCountMinuteBoundaries) {
  const auto at = [](int hour, int minute, int second) {
    return DateTime::of(2026, 4, 30, hour, minute, second);
  };
  errors.answer({error_choice::next});
  for (auto [from, to, text] :
       {std::tuple{at(12, 0, 0), at(13, 30, 0), "1 hr 30 min"},
        {at(13, 30, 0), at(12, 0, 0), "1 hr 30 min"},
        {at(11, 59, 59), at(12, 0, 0), "1 min"},
        {at(12, 0, 0), at(12, 0, 59), "0 min"},
        {at(23, 59, 0), DateTime::of(2026, 5, 1, 0, 30), "31 min"},
        {DateTime::fromSerial(-1, 86399), DateTime(), "1 min"},
        {DateTime::fromSerial(-2'147'483'647), DateTime::fromSerial(2'147'483'647), ""}})
    EXPECT_EQ(merge->getTimeDurationFieldValue(from, to), text);
  EXPECT_EQ(errors.recorded().at(0).number, error_number::overflow);
}

TEST_F(MergeData, ListsTheDocumentsOfATaskInOrder) {
  merge->taskID = 17;
  for (const auto& [task, scope, order, type, name] : {std::tuple{17, 2, 5, 1, "Sign"},
                                                       {17, 2, 1, 1, "Call first"},
                                                       {17, 2, 2, 2, "Bank statements"},
                                                       {17, 2, 3, 1, ""},
                                                       {17, 2, 4, 3, "Of no listed type"},
                                                       {17, 1, 1, 1, "Of another scope"},
                                                       {18, 2, 1, 1, "Of another task"}}) {
    RowFields fields{{"TaskIDNum", task}, {"OpProcedureScopeType", scope}, {"OrderNum", order}};
    fields.insert(fields.end(), {{"OpProcedureType", type}, {"OpProdedureName", name}});
    addRow("OperatingProcedures", fields);
  }
  build(8);
  EXPECT_EQ(print("Client Documents & Instructions"),
            "\t- Call first\\par \r\n\t- Document Required - Bank statements\\par \r\n"
            "\t- Sign\\par \r\n");
}

TEST_F(MergeData, FindsTheTaskOfAScheduleEntryAlsoInTheArchive) {
  addTask(40, "");
  const Id task = addTask(41, "");
  addRow("archiveTasks", {{"ScheduleIDNum", "42"}, {"oldTaskID", "812"}});
  addRow("archiveTasks", {{"ScheduleIDNum", "41"}, {"oldTaskID", "813"}});
  for (const auto& [schedule, found] : {std::pair{41, task}, {43, -1}, {-1, -1}, {42, 812}}) {
    merge->put_scheduleID(schedule);
    EXPECT_EQ(merge->taskID, found) << schedule;
  }
}

TEST_F(MergeData, LooksFieldsUpByEitherName) {
  merge->contactID = addRow("Contacts", {{"FirstName", "Anna"}});
  EXPECT_EQ(merge->getMergeDataFromFieldName("FirstName"), "") << "the list was empty before";
  EXPECT_EQ(merge->getMergeDataFromFieldName("FirstName"), "Anna");
  EXPECT_EQ(merge->getMergeDataFromDisplayName("Contact First Name"), "Anna");
  string name = "Contact First Name";
  EXPECT_EQ(merge->getDBFieldNameFromDisplayFieldName(name), "FirstName");
  EXPECT_EQ(merge->getDisplayFieldNameFromDBFieldName(name = "FirstName"), "Contact First Name");
  EXPECT_EQ(merge->getDisplayFieldNameFromDBFieldName(name = "Nothing"), "Nothing");
  merge->ConvertCompanyNameToContactNameForContacts = true;
  build(3);
  GridColumnList& list = *merge->get_FieldList();
  EXPECT_EQ(merge->getMergeDataFromDisplayName("Company Name"), "Contact Display Name");
  list.findEntry(field_column::displayName, "Contact Display Name");
  list.setItem(field_column::displayName, "Contact Full Name");
  EXPECT_EQ(merge->getMergeDataFromDisplayName("Company Name"), "Contact Full Name");
  list.findEntry(field_column::databaseField, "CompanyName");
  list.setItem(field_column::databaseField, "FirmName");
  EXPECT_EQ(merge->getMergeDataFromFieldName("CompanyName"), "DisplayName");
  merge->companyID = 1;
  EXPECT_EQ(merge->getMergeDataFromFieldName("CompanyName"), "");
}

TEST_F(MergeData, WritesFieldsBackToTheirColumns) {
  merge->companyID = addRow("Companies", {{"City", "Guelph"}});
  merge->contactID = addRow("Contacts", {{"InheritCompanyInfo", "True"}});
  addRow("ContactsNotes", {{"ContactNum", "1"}});
  merge->put_MergeFieldListUse(5);
  merge->ListType = 8;
  setUp();
  const auto written = columnsWrittenBy([&] {
    for (const char* field : {"BusinessCity", "FirstName", "Notes", "HomeAbbreviatedProvince",
                              "ContactAndSpouseName", "Nothing", ""})
      merge->writeDataToField(field, "Elora");
  });
  EXPECT_EQ(written, (vector<string>{"City=Elora", "BusinessCity=Elora", "FirstName=Elora"}));
  EXPECT_EQ(dump("SELECT City, BusinessCity, FirstName FROM Companies, Contacts"),
            "Elora|Elora|Elora|\n");
}

TEST_F(MergeData, ProvincesAreRecognizedByTheirForms) {
  for (const char* province :
       {"AB|Alberta|alta.", "BC|British Columbia|BritishColumbia|b.c.", "MB|Manitoba|Man",
        "ON|Ontario|ont.", "SK|Saskatchewan|Sask", "QC|Quebec|quebec", "NS|Nova Scotia|N.S.",
        "NB|New Brunswick", "NL|Newfoundland|Newfoundland & Labrador", "YT|Yukon|yt",
        "PEI|Prince Edward Island|P.E.I.", "NT|Northwest Territories|nwt", "NU|Nunavut",
        "Newfoundland And Labrador|Newfoundland And Labrador", "Nfld.|Nfld.", "Québec|Québec",
        "PE|PE", " Ontario| Ontario", "New York|New York"}) {
    const vector<string> texts = split(province);
    for (std::size_t i = 1; i < texts.size(); ++i) {
      string written = texts[i];
      EXPECT_EQ(merge->getAbbreviatedProvince(written), texts[0]);
      EXPECT_EQ(merge->getFullProvinceString(written), texts[1]);
    }
  }
}

TEST_F(MergeData, CodesHaveTexts) {
  // From code 0 on; the last text also stands for every code beyond.
  for (const auto& [lookUp, texts] :
       {std::pair{&getCompanyTypeStringFromCompanyTypeNum,
                  "Unknown|Corporation|Sole Proprietorship|Partnership|Non Profit|Trust|"
                  "Joint Venture|S Corporation|LLP|LLC|Fiduciary|Unknown"},
        {&getFinancialStatementsStringFromFinancialStatementsNum,
         "Not Specified|Not Specified|Compilation (NTR)|Review Engagement|"
         "Review Engagement with Differential Reporting|Audit|Not Specified"},
        {&getRC59FormStatusStringFromRC59FormStatusNum,
         "Not Filed|Awaiting Signature|CRA Processing|Completed|Not Filed"},
        {&getRC59PermissionStringFromRC59PermissionNum, "None|Full|Limited|None"},
        {&getGSTFilingMethodStringFromGSTFilingMethodNum,
         "Not Specified|Traditional|Simple Method|Quick Method|Not Specified"},
        {&getCorporationTypeStringFromCorporationTypeNum, "CCPC|Regular Corporation|CCPC"},
        {&getCorporationLevelStringFromCorporationLevelNum,
         "Federal Corporation|Federal Corporation|Provincial Corporation|Federal Corporation"}}) {
    std::int16_t code = 0;
    for (const string& text : split(texts)) {
      EXPECT_EQ(lookUp(code), text) << code;
      ++code;
    }
    for (std::int16_t other : {-1, 32767}) EXPECT_EQ(lookUp(other), split(texts).back());
  }
  std::int16_t partnership = 3;
  live(9, 3);
  EXPECT_EQ(getCompanyTypeStringFromCompanyTypeNum(partnership), "General Partnership");
}

TEST_F(MergeData, SelectsAndOrdersTheAccountsThatTheClientListShows) {
  const string shown = "WHERE ClientData.ShowThisClient = True";
  const string byNumber = "ORDER BY Companies.ClientIDStr, Companies.CompanyName;";
  for (const auto& [showOnly, statusMode, id, order, tail] :
       {std::tuple{true, 1, -1, 0, shown + " AND ClientData.ActiveStatus=1 ;"},
        {true, 2, -1, 0, shown + " AND NOT ClientData.ActiveStatus=1 ;"},
        {true, 3, 0, 0, shown + " AND ClientData.ClientDataID=0 ;"},
        {false, 1, -1, 5, "WHERE ClientData.ActiveStatus=1 ;"},
        {false, 3, -1, 1, "Clients.CompanyIDNum ORDER BY Companies.CompanyName;"},
        {false, 3, -1, 2, "ORDER BY Companies.CorporateName;"},
        {false, 3, -1, 3, byNumber},
        {false, 3, -1, 4, byNumber}}) {
    plainClients.setListOrder(order);
    EXPECT_THAT(getMainBusinessSQLString(showOnly, statusMode, id), testing::EndsWith(tail));
  }
}

}  // namespace
}  // namespace autonotify::test
