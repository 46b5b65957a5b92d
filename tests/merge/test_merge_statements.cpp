// The statements by which a merge reads its records, letter by letter.

#include "merge/MergeTest.h"
#include "support/golden_file.h"

namespace autonotify::test {
namespace {

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
