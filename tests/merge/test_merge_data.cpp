
#include "merge/MergeTest.h"
#include "merge/records/modCodeTexts.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;

class MergeData : public MergeTest {
 protected:
  void setUp() { merge->initializeDataRecordsetsForSingleDocMerge(); }
};

/// A field that names no column of its source would ask the person, which fails the test.
TEST_F(MergeData, EveryFieldReadsFromItsRecord) {
  addAccountingClient();
  addAllTold(*this, "merge_tables.txt", "one record of each source");
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
  const int pumps = screen.pumps();
  const auto readAndEnd = [&] {
    EXPECT_EQ(print("Company Name|Company Name|Software Name"), "Elm Ltd.|Elm Ltd.|Ledger 9");
    merge->Terminate();
    merge->Terminate();
  };
  EXPECT_EQ(sourcesOf(readAndEnd), 2U) << "kept open";
  EXPECT_EQ(screen.pumps() - pumps, 6) << "twice a read";
}

TEST_F(MergeData, PrintsAValueByItsTypeAndAsksWhereItIsNotOne) {
  merge->docketId = addRow("Dockets", {{"Subject", "Bookkeeping"}, {"DateFrom", "2026-04-30"}});
  build(6);
  EXPECT_EQ(print("Time Entry Date|Time Entry Date@dddd|Time Entry Date Created"),
            "Apr 30, 2026|Thursday|");
  const Value items[] = {"Subject", "When", "DocketInfo", 2, ""};
  merge->get_FieldList()->addEntry(1000, items);
  errors.answer({error_choice::next, error_choice::leave});
  EXPECT_EQ(print("When@d|When@d"), "Bookkeeping|Bookkeeping");
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

TEST_F(MergeData, DurationsCountMinuteBoundaries) {
  for (auto [from, to, text] : casesOf<DateTime, DateTime, string>("durations"))
    EXPECT_EQ(merge->getTimeDurationFieldValue(from, to), text);
  errors.answer({error_choice::next});
  auto from = DateTime::fromSerial(-2'147'483'647), to = DateTime::fromSerial(2'147'483'647);
  EXPECT_EQ(merge->getTimeDurationFieldValue(from, to), "");
  EXPECT_EQ(errors.recorded().at(0).number, error_number::overflow);
}

TEST_F(MergeData, ListsTheDocumentsOfATaskInOrder) {
  merge->taskID = 0;
  addAllTold(*this, "merge_tables.txt", "documents of tasks");
  build(8);
  EXPECT_EQ(print("Client Documents & Instructions"),
            "\t- Call first\\par \r\n\t- Document Required - Bank statements\\par \r\n"
            "\t- Sign\\par \r\n");
}

TEST_F(MergeData, FindsTheTaskOfAScheduleEntryAlsoInTheArchive) {
  addAllTold(*this, "merge_tables.txt", "tasks of entries");
  for (const auto& [schedule, found] : {std::pair{41, 2}, {43, -1}, {-1, -1}, {42, 812}}) {
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
  list.findEntry(field_column::displayName, "Client ID");
  list.setItem(field_column::displayName, "Contact Display Name");
  EXPECT_EQ(merge->getMergeDataFromDisplayName("Company Name"), "Contact Display Name");
  list.findEntry(field_column::databaseField, "CompanyName");
  list.setItem(field_column::databaseField, "FirmName");
  EXPECT_EQ(merge->getMergeDataFromFieldName("CompanyName"), "DisplayName");
  merge->companyID = 1;
  EXPECT_EQ(merge->getMergeDataFromFieldName("CompanyName"), "");
  merge->Terminate();
  errors.answer({error_choice::next});
  EXPECT_FALSE(merge->testStr("Contact First Name")) << "there is no list";
  EXPECT_EQ(errors.recorded().at(0).number, error_number::objectNotSet);
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
  for (const vector<string>& names : rowsOf("provinces", 2))
    for (string written : vector<string>(names.begin() + 1, names.end())) {
      EXPECT_EQ(merge->getAbbreviatedProvince(written), names[0]);
      EXPECT_EQ(merge->getFullProvinceString(written), names[1]);
    }
}

TEST_F(MergeData, CodesHaveTheirTextsAndOneForTheRest) {
  constexpr string (*lookUps[])(std::int16_t&) = {
      getCompanyTypeStringFromCompanyTypeNum,
      getFinancialStatementsStringFromFinancialStatementsNum,
      getRC59FormStatusStringFromRC59FormStatusNum,
      getRC59PermissionStringFromRC59PermissionNum,
      getGSTFilingMethodStringFromGSTFilingMethodNum,
      getCorporationTypeStringFromCorporationTypeNum,
      getCorporationLevelStringFromCorporationLevelNum};
  // Of the codes from 0 on; the last is that of all others too.
  for (std::size_t i = 0; const vector<string>& texts : rowsOf("codes", 3)) {
    const auto lookUp = lookUps[i++];
    for (std::int16_t code = 0; code < std::ssize(texts); ++code)
      EXPECT_EQ(lookUp(code), texts[static_cast<std::size_t>(code)]) << code;
    for (std::int16_t other : {-1, 32767}) EXPECT_EQ(lookUp(other), texts.back());
  }
  std::int16_t partnership = 3;
  live(9, 3);
  EXPECT_EQ(getCompanyTypeStringFromCompanyTypeNum(partnership), "General Partnership");
}

}  // namespace
}  // namespace autonotify::test
