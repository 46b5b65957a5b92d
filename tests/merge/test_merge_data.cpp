#include <algorithm>

#include "merge/MergeTest.h"
#include "merge/records/modCodeTexts.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;

class MergeData : public MergeTest {
 protected:
  /// A company with one of everything that its accounts are joined of.
  Id addAccountingClient(const RowFields& services = {}) {
    const Id company = addRow("Companies", {{"CompanyName", "Elm Ltd."}});
    addRow("ClientData", {{"CompanyIDNum", company}});
    addRow("Clients", {{"CompanyIDNum", company}});
    addRow("CompaniesNotes", {{"CompanyNum", company}});
    addRow("AccountingServices", services);
    for (const char* table :
         {"CorpTaxInfo", "ClientOptions", "LawInfo", "OtherInfo", "WSIB_EHTInfo", "ClientUSInfo"})
      addRow(table, {});
    const string id = std::to_string(company);
    insert(
        "SoftwareInfo (DefaultSoftware, SoftwareName, CompanyIDNum, CompanyID) VALUES (1, "
        "'Ledger 9', " +
        id + ", " + id + ")");
    return company;
  }

  void insert(const string& row) { plainDatabase->connection().exec("INSERT INTO " + row); }

  void setUp() { merge->initializeDataRecordsetsForSingleDocMerge(); }
};

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

TEST_F(MergeData, ClosesWhatItOpens) {
  merge->companyID = addAccountingClient();
  for (Id* id : {&merge->contactID, &merge->firmID, &merge->userID, &merge->appointmentID,
                 &merge->docketId, &merge->taskID})
    *id = 1;
  // The sources opened, without the labels, by a run that must close whatever it opened.
  const auto sourcesOf = [&](auto run) {
    auto statements = statementsOf(run);
    EXPECT_EQ(std::ranges::count(calls.log(), "closeRecordset"), std::ssize(statements));
    std::erase_if(statements,
                  [](const string& sql) { return sql.find("FROM Custom") != sql.npos; });
    return statements.size();
  };
  const auto setUpTwice = [&] {
    setUp();
    merge->resetAllItemIDs();
    setUp();
  };
  EXPECT_EQ(sourcesOf(setUpTwice), 10U) << "none without ids";
  merge->companyID = 1;
  build(8);
  EXPECT_EQ(print("Software Name"), "") << "not before a client's record has opened it";
  windows.pumps = 0;
  const auto readAndEnd = [&] {
    EXPECT_EQ(print("Company Name|Company Name|Software Name"), "Elm Ltd.|Elm Ltd.|Ledger 9");
    merge->Terminate();
    merge->Terminate();
  };
  EXPECT_EQ(sourcesOf(readAndEnd), 2U) << "kept open";
  EXPECT_EQ(windows.pumps, 6) << "twice a read";
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
  calls.record(true);
  for (const auto& [contact, name] : {std::pair{2, "Anna Lee"}, {1, "Ben Oak"}, {77, ""}}) {
    merge->contactID = contact;
    EXPECT_EQ(print("Contact Display Name"), name);
  }
  EXPECT_EQ(print("Company Notes|Software Name|Your Company Name"), "By email|Abacus|Birch LLP");
  EXPECT_EQ(logged("findRecord"),
            (vector<string>{"ContactID=2", "ContactID=1", "ContactID=77", "ComapnyNum=5"}));
}

TEST_F(MergeData, LooksForTheSoftwareOfOneClientAndReadsTheFirstOfABulkMerge) {
  addRow("SoftwareInfo",
         {{"CompanyID", "9"}, {"DefaultSoftware", "True"}, {"SoftwareName", "Abacus"}});
  merge->companyID = addAccountingClient();
  merge->ListType = 8;
  setUp();
  calls.record(true);
  EXPECT_EQ(print("Software Name"), "Ledger 9");
  EXPECT_EQ(logged("findRecord"), vector<string>{"CompanyID=1"});
  merge->put_MergeFieldListUse(2);
  EXPECT_EQ(print("Software Name"), "Abacus");
}

TEST_F(MergeData, AsksAClosedDatabaseForNothing) {
  merge->companyID = addAccountingClient();
  addTask(40, "Call");
  merge->ListType = 8;
  setUp();
  string field = "CompanyName";
  ASSERT_EQ(print("Company Name"), "Elm Ltd.");
  closeDatabase();
  EXPECT_EQ(merge->getDataFieldFromRecordset(field), "");
  windows.pumps = 0;
  EXPECT_EQ(statementsOf([&] {
              merge->put_scheduleID(40);
              EXPECT_EQ(merge->taskID, noId);
              merge->taskID = 1;
              setUp();
              EXPECT_EQ(print("Company Name|Task Name"), "|");
              EXPECT_EQ(merge->getDocsAndInstructionsList(), "");
              merge->writeDataToField("City", "Elora");
            }),
            vector<string>{});
  EXPECT_EQ(windows.pumps, 0);
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
  merge->docketId = addRow("Dockets", {{"Subject", "Bookkeeping"},
                                       {"DateFrom", "2026-04-30"},
                                       {"TimeFrom", "14:05"},
                                       {"TimeTo", "15:36"}});
  plainDatabase->connection().exec(
      "UPDATE Dockets SET DocketLocked=1, TotalTimeReal=1.5, TotalTimeRounded=0.5167, "
      "TotalAmountReal=1234.5, TotalAmountAdjusted=-3, TotalAmountFinal=0");
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
  errors.answer({error_choice::next, error_choice::leave});
  EXPECT_EQ(print("When@d|When@d"), "Bookkeeping|Bookkeeping") << "a value that is not of its type";
}

TEST_F(MergeData, ShowsSamplesAsTheyStand) {
  merge->taskID = 1;
  listSamples({{"Due", "Jan 31, 2026", 2}, {"Paid", "$5.00", 4}, {"Two", "one\r\ntwo\r\n\r\nx\n"}});
  EXPECT_EQ(print("Due@yyyy|Paid"), "Jan 31, 2026|$5.00");
  EXPECT_EQ(print("Two"), "one\\par \r\ntwo\\par \r\n\\par \r\nx\n");
  merge->UseWordWrap = false;
  EXPECT_EQ(print("Two"), "one, \r\ntwo, \r\n, \r\nx\n");
  merge->ConvertStrToRTF = false;
  EXPECT_EQ(print("Two"), "one\r\ntwo\r\n\r\nx\n");
}

TEST_F(MergeData, GivesAnInheritingContactTheAddressOfTheCompany) {
  insert(
      "Companies (OfficeNumber, FaxNumber, Address, City, Province, Country) VALUES "
      "('555-1000', '555-1001', '1 Elm Street', 'Guelph', 'Ontario', 'Canada')");
  for (const char* inherits : {"0", "1"})
    insert(string("Contacts (BusinessPhone_Main, BusinessAddress, BusinessPostalCode, "
                  "BusinessProvince, FirstName, InheritCompanyInfo) VALUES ('555-2000', "
                  "'2 Oak Street', 'N1G 2W1', 'Quebec', 'Anna', ") +
           inherits + ")");
  const string fields =
      "Contact Business Phone|Contact Business Fax|Contact Business Address|Contact Business City|"
      "Contact Business Postal Code|Contact Business Province|"
      "Contact Business Abbreviated Province|Contact First Name|Contact Business Country";
  const char* own = "555-2000||2 Oak Street||N1G 2W1|Quebec|QC|Anna|";
  build(8);
  for (const auto& [companyID, contactID, values] :
       {std::tuple{1, 2, "555-2000|555-1001|1 Elm Street|Guelph|N1G 2W1|Ontario|QC|Anna|Canada"},
        {-1, 2, own},
        {1, 1, own}}) {
    merge->companyID = companyID;
    merge->contactID = contactID;
    setUp();
    EXPECT_EQ(print(fields), values) << companyID << '/' << contactID;
  }
}

TEST_F(MergeData, NamesTheFifthCustomFieldOfACompanyInTheSetUpAlone) {
  insert(
      "Contacts (DisplayName, HomeProvince, AltProvince, Custom5) VALUES ('Anna Lee', "
      "'british columbia', 'Bavaria', 'Fifth')");
  insert("Companies (Custom1, Custom5) VALUES ('One', 'Five')");
  merge->companyID = merge->contactID = 1;
  build(8);
  errors.answer({error_choice::next});
  const string fields =
      "Contact & Spouse Name|Contact Alternate Abbreviated Province|Contact Custom Field 5|"
      "Contact Home Abbreviated Province|Company Custom Field 1|Company Custom Field 5";
  EXPECT_EQ(print(fields), "Anna Lee|Bavaria|Fifth|BC|One|");
  setUp();
  EXPECT_EQ(print(fields), "Anna Lee|Bavaria|Fifth|BC|One|Five");
}

TEST_F(MergeData, PutsAccountingCodesInWords) {
  merge->companyID = addAccountingClient({{"YearEndDate", "2025-06-30"}});
  build(8);
  const string fields =
      "RC59 Permission Level|RC59 Form Status|HST Filing Method|Financial Statements|"
      "Corporation Type|Corporation Level|Year End Date|Company Type";
  EXPECT_EQ(print(fields),
            "None|Not Filed|Not Specified|Not Specified|CCPC|Federal Corporation|June 30|")
      << "of empty columns";
  plainDatabase->connection().exec(
      "UPDATE Companies SET CompanyType='2'; UPDATE AccountingServices SET RC59Permission=2, "
      "RC59Status=1, GSTFilingMethod=3, FinancialStatements=5; UPDATE CorpTaxInfo SET "
      "CorporationType=1, CorporationLevel=2");
  setUp();
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
        {DateTime::fromSerial(-1, 86399), DateTime(), "1 min"},
        {DateTime::fromSerial(-2'147'483'647), DateTime::fromSerial(2'147'483'647), ""}})
    EXPECT_EQ(merge->getTimeDurationFieldValue(from, to), text);
  EXPECT_EQ(errors.recorded().at(0).number, error_number::overflow);
}

TEST_F(MergeData, ListsTheDocumentsOfATaskInOrder) {
  merge->taskID = 0;
  insert(
      "OperatingProcedures (TaskIDNum, OpProcedureScopeType, OrderNum, OpProcedureType, "
      "OpProdedureName) VALUES (0, 2, 5, 1, 'Sign'), (0, 2, 1, 1, 'Call first'), "
      "(0, 2, 2, 2, 'Bank statements'), (0, 2, 3, 1, ''), (0, 2, 4, 3, 'Of no listed type'), "
      "(0, 1, 1, 1, 'Of another scope'), (18, 2, 1, 1, 'Of another task')");
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
  merge->companyID = addAccountingClient();
  merge->contactID = addRow("Contacts", {{"InheritCompanyInfo", "True"}});
  addRow("ContactsNotes", {{"ContactNum", "1"}});
  merge->put_MergeFieldListUse(5);
  merge->ListType = 8;
  setUp();
  ASSERT_EQ(print("Company Notes"), "") << "opened for reading";
  const auto written = columnsWrittenBy([&] {
    for (const char* field : {"BusinessCity", "FirstName", "Notes", "HomeAbbreviatedProvince",
                              "ContactAndSpouseName", "Nothing", ""})
      merge->writeDataToField(field, "Elora");
    merge->writeDataToField("YearEndDate", "2025-06-30");
  });
  EXPECT_EQ(written, (vector<string>{"City=Elora", "BusinessCity=Elora", "FirstName=Elora",
                                     "Notes=Elora", "YearEndDate=2025-06-30"}));
  EXPECT_EQ(dump("SELECT City, BusinessCity, FirstName, CompaniesNotes.Notes FROM Companies, "
                 "Contacts, CompaniesNotes"),
            "Elora|Elora|Elora|Elora|\n");
}

TEST_F(MergeData, ProvincesAreRecognizedByTheirForms) {
  for (const char* province :
       {"BC|British Columbia|BritishColumbia|b.c.", "NL|Newfoundland|Newfoundland & Labrador",
        "AB|Alberta|Alta.|alta|ab", "MB|Manitoba|man.|Man|mb", "SK|Saskatchewan|Sask.|sask|sk",
        "QC|Quebec|Que.|que|qc", "NS|Nova Scotia|NovaScotia|N.S.|ns", "NU|Nunavut|nu",
        "NB|New Brunswick|NewBrunswick|N.B.|nb", "YT|Yukon|yt", "PEI|Prince Edward Island|P.E.I.",
        "NT|Northwest Territories|nwt", "ON|Ontario|ont.",
        "Newfoundland And Labrador|Newfoundland And Labrador", "Nfld.|Nfld.", "Québec|Québec",
        "PE|PE", " Ontario| Ontario"}) {
    const vector<string> names = split(province);
    for (string written : vector<string>(names.begin() + 1, names.end())) {
      EXPECT_EQ(merge->getAbbreviatedProvince(written), names[0]);
      EXPECT_EQ(merge->getFullProvinceString(written), names[1]);
    }
  }
}

TEST_F(MergeData, CodesHaveTheirTextsAndOneForTheRest) {
  // Of the codes from 0 on; the last is that of all others too.
  for (const auto& [lookUp, texts] :
       {std::pair{&getCompanyTypeStringFromCompanyTypeNum,
                  "Unknown|Corporation|Sole Proprietorship|Partnership|Non Profit|Trust|Joint "
                  "Venture|S Corporation|LLP|LLC|Fiduciary|Unknown"},
        {&getFinancialStatementsStringFromFinancialStatementsNum,
         "Not Specified|Not Specified|Compilation (NTR)|Review Engagement|Review Engagement with "
         "Differential Reporting|Audit|Not Specified"},
        {&getRC59FormStatusStringFromRC59FormStatusNum,
         "Not Filed|Awaiting Signature|CRA Processing|Completed|Not Filed"},
        {&getRC59PermissionStringFromRC59PermissionNum, "None|Full|Limited|None"},
        {&getGSTFilingMethodStringFromGSTFilingMethodNum,
         "Not Specified|Traditional|Simple Method|Quick Method|Not Specified"},
        {&getCorporationTypeStringFromCorporationTypeNum, "CCPC|Regular Corporation|CCPC"},
        {&getCorporationLevelStringFromCorporationLevelNum,
         "Federal Corporation|Federal Corporation|Provincial Corporation|Federal Corporation"}}) {
    const vector<string> expected = split(texts);
    for (std::int16_t code = 0; code < std::ssize(expected); ++code)
      EXPECT_EQ(lookUp(code), expected[static_cast<std::size_t>(code)]) << code;
    for (std::int16_t other : {-1, 32767}) EXPECT_EQ(lookUp(other), expected.back());
  }
  std::int16_t partnership = 3;
  live(9, 3);
  EXPECT_EQ(getCompanyTypeStringFromCompanyTypeNum(partnership), "General Partnership");
}

}  // namespace
}  // namespace autonotify::test
