#include "merge/MergeTest.h"
#include "platform/controls/RichTextBox.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

using std::string;

const string letter =
    "Dear «Contact Display Name», «Company Name» of «Contact Business City» is due on "
    "«(Task Due Date, mmmm d, yyyy)» («Business Number», «Software Name», «Time Duration»).";
const string mergedLetter =
    "Dear Anna Lee, Elm Ltd. of Guelph is due on April 30, 2026 ( , , 45 min).";

/// One client with a task, whose keys are all 1, labels and a document.
void fillOffice(TableRows rows) {
  addAllTold(rows, "merge_tables.txt", "office");
}

void setUp(clsInsertFieldsInRTB& merge) {
  merge.ListType = 8;
  merge.companyID = merge.contactID = merge.taskID = merge.appointmentID = 1;
  merge.TemplateText = letter;
  merge.initializeDataRecordsetsForSingleDocMerge();
}

string mergeLetter(clsInsertFieldsInRTB& merge) {
  setUp(merge);
  return merge.parseRTBComment();
}

string appointmentAndFirmFields(clsInsertFieldsInRTB& merge) {
  ListBox box;
  merge.listBox = &box;
  GridColumnList& list = *merge.get_FieldList();
  merge.createAppointmentInfoFieldListStructure(list, false);
  merge.createAccountantFieldListStructure(false, true);
  for (const ListBox::Entry& entry : box.entries())
    EXPECT_TRUE(list.selectEntry(entry.itemData)) << entry.text;
  const int last = list.getEntryCount();
  list.selectEntry(7);
  return std::to_string(last) + " " + toText(list.getItem(field_column::displayName));
}

string writeCity(clsInsertFieldsInRTB& merge) {
  merge.put_MergeFieldListUse(5);
  merge.ListType = 3;
  merge.companyID = merge.contactID = 1;
  merge.initializeDataRecordsetsForSingleDocMerge();
  merge.writeDataToField("BusinessCity", "Elora");
  string column = "City";
  const string merged = merge.getMergeDataFromFieldName("City");
  return merge.getDataFieldFromRecordset(column) + merged;
}

string clickOnAnEntry(clsInsertFieldsInRTB& merge) {
  RichTextBox box;
  merge.RTB = &box;
  const Value items[] = {"Column", "Company Name", "None", 1, "Acme"};
  merge.get_FieldList()->addEntry(1, items);
  int itemData = 1;
  merge.onListClick(itemData);
  return box.text();
}

/// An operation on a new object, which gives `left` when it is left at the first statement.
WalkedOperation merges(const char* name, int calls, const char* left, const char* closed,
                       string (*run)(clsInsertFieldsInRTB& merge)) {
  const auto onNewObject = [run](TestHost&) {
    clsInsertFieldsInRTB merge;
    return run(merge);
  };
  return {name, onNewObject, left, closed, calls};
}

const char* const closedLetter = "Dear ,  of  is due on  ( , , ).";

const WalkedOperation operations[] = {
    merges("letter", 50, "Dear ,  of  is due on  (, , ).", closedLetter, mergeLetter),
    merges("write", 50, "GuelphGuelph", "", writeCity),
    merges("lists", 25, "18 Your Province", "29 Custom Appt Field 1", appointmentAndFirmFields),
    merges("documents", 5, "", "",
           [](auto& merge) { return merge.taskID = 1, merge.getDocsAndInstructionsList(); }),
    merges("task", 5, "-1", "-1",
           [](auto& merge) { return std::to_string(merge.getTaskIDFromScheduleIDNum(1)); }),
    merges("place", 2, "«WCB Number», «State» and «Contact Display Name»",
           "«WSIB Number», «Province» and «Contact Display Name»",
           [](auto& merge) {
             return merge.convertProvinceFields("«WCB Number», «State» and «Contact Full Name»");
           }),
    merges("click", 1, "", "«Company Name»", clickOnAnEntry),
};

WALK_OPERATIONS(MergeFaults, operations, fillOffice);

class MergeFault : public MergeTest {
 protected:
  MergeFault() {
    fillOffice(*this);
    setUp(*merge);
  }

  string mergedWithFailure(int call, int choice) {
    calls.reset();
    calls.failAt(call);
    errors.answer({choice});
    return merge->parseRTBComment();
  }

  string mergedWithFailedRead(const string& column, int choice) {
    calls.reset();
    calls.record(true);
    merge->parseRTBComment();
    return mergedWithFailure(callNumber("getFieldValue " + column, 1), choice);
  }
};

TEST_F(MergeFault, AClosedDatabaseIsAskedForNothing) {
  ASSERT_EQ(merge->parseRTBComment(), mergedLetter);
  closeDatabase();
  const int pumps = screen.pumps();
  EXPECT_EQ(
      statementsOf([&] { EXPECT_EQ(merge->parseRTBComment(), closedLetter) << "opened before"; }),
      std::vector<string>{});
  EXPECT_EQ(screen.pumps(), pumps);
}

TEST_F(MergeFault, AFailedReadCostsOneFieldAtMost) {
  ASSERT_EQ(merge->parseRTBComment(), mergedLetter);
  const string withoutCompany = "Dear Anna Lee,  of Guelph is due on April 30, 2026 ( , , 45 min).";
  const string withoutCity = "Dear Anna Lee, Elm Ltd. of  is due on April 30, 2026 ( , , 45 min).";
  for (const int choice : {error_choice::next, error_choice::leave})
    EXPECT_EQ(mergedWithFailedRead("CompanyName", choice), withoutCompany);
  for (const int choice : {error_choice::quit, 9})
    EXPECT_EQ(mergedWithFailedRead("CompanyName", choice), mergedLetter);
  EXPECT_EQ(mergedWithFailedRead("InheritCompanyInfo", error_choice::next), withoutCity);
}

TEST_F(MergeFault, AFailureIsNotRememberedWithTheTemplate) {
  merge->TemplateText = "Of «State»: " + letter;
  for (const int choice : {error_choice::leave, error_choice::next})
    EXPECT_EQ(mergedWithFailure(1, choice), "Of : " + mergedLetter);
  EXPECT_EQ(merge->parseRTBComment(), "Of ON: " + mergedLetter);
}

}  // namespace
}  // namespace autonotify::test
