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

TEST_F(MergeData, ADurationBeyondAllMinutesIsAskedAbout) {
  errors.answer({error_choice::next});
  auto from = DateTime::fromSerial(-2'147'483'647), to = DateTime::fromSerial(2'147'483'647);
  EXPECT_EQ(merge->getTimeDurationFieldValue(from, to), "");
  EXPECT_EQ(errors.recorded().at(0).number, error_number::overflow);
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
  void setUpIn(int country, int use) {
    live(country, 3);
    startAnew(use);
    merge->initializeDataRecordsetsForSingleDocMerge();
  }
  /// Reads a field of each source.
  void readOnDemand(int use) {
    live(1, 3);
    startAnew(use);
    build(8, use);
    print("Payroll Number|Company Name|Company Notes|Contact Gender|Contact Notes|Your City");
    print("Task Name|Client Documents & Instructions");
    build(5, use);
    print("Appointment Name");
    build(6, use);
    print("Time Entry Name");
  }

  /// A line for each statement of the run, with cursor and lock; labels are noted when read first.
  template <class Run>
  void note(const std::string& title, Run run) {
    noted += "[" + title + "]\n";
    for (const std::string& sql : statementsOf(run))
      if (sql.find("FROM Custom") == sql.npos || noted.find(sql) == noted.npos) noted += sql + "\n";
  }

  std::string noted;
};

TEST_F(MergeStatements, AreThoseOfTheFile) {
  note("set up in Canada", [&] { setUpIn(1, 1); });
  note("set up elsewhere, for writing", [&] { setUpIn(2, 5); });
  note("set up for a contact alone", [&] {
    merge->resetAllItemIDs();
    merge->contactID = 2;
    merge->initializeDataRecordsetsForSingleDocMerge();
  });
  note("on demand", [&] { readOnDemand(1); });
  note("on demand in bulk", [&] { readOnDemand(2); });
  note("the task of an entry", [&] { merge->put_scheduleID(41); });
  for (const auto& [showOnly, statusMode, id, order] : casesOf<bool, int, Id, int>("accounts")) {
    plainClients.setListOrder(order);
    noted += "[accounts in order " + std::to_string(order) + "]\n";
    noted += getMainBusinessSQLString(showOnly, statusMode, id) + "\n";
  }
  expectGolden(AUTONOTIFY_TEST_FOLDER "merge_statements.txt", noted);
}

}  // namespace
}  // namespace autonotify::test
