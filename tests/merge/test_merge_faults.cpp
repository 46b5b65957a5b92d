#include "merge/MergeTest.h"
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
void fill(TestHost& host) {
  Rows(*host.plainDatabase).addSchedule(1, 1, DateTime::of(2026, 4, 30), {{"ClientNum", "1"}});
  Rows(*host.plainDatabase).addRow("Appointments", {{"TimeFrom", "9:00"}, {"TimeTo", "9:45"}});
  for (const char* row :
       {"Companies (CompanyName, City, Province) VALUES ('Elm Ltd.', 'Guelph', 'ON')",
        "ClientData (CompanyIDNum) VALUES (1)",
        "Contacts (DisplayName, InheritCompanyInfo) VALUES ('Anna Lee', 1)",
        "Tasks (ScheduleIDNum, Subject) VALUES (1, 'GST')",
        "CustomFields (ApptCustomName1, ApptCustomName2) VALUES ('Room:', 'Custom 2:')",
        "CustomAddressFields (CompanyLabel3) VALUES ('Region')",
        "OperatingProcedures (TaskIDNum, OpProcedureScopeType, OpProcedureType, OpProdedureName) "
        "VALUES (1, 2, 1, 'Call first')"})
    host.plainDatabase->connection().exec(string("INSERT INTO ") + row);
}

void setUp(clsInsertFieldsInRTB& merge) {
  merge.ListType = 8;
  merge.companyID = merge.contactID = merge.taskID = merge.appointmentID = 1;
  merge.TemplateText = letter;
  merge.initializeDataRecordsetsForSingleDocMerge();
}

string appointmentAndFirmRows(clsInsertFieldsInRTB& merge) {
  ListBox box;
  merge.listBox = &box;
  GridColumnList& list = *merge.get_FieldList();
  merge.createAppointmentInfoFieldListStructure(list, false);
  merge.createAccountantFieldListStructure(false, true);
  for (const ListBox::Entry& entry : box.entries())
    EXPECT_TRUE(list.selectEntry(entry.itemData)) << entry.text;
  return list.toText();
}

string firmRows() {
  TestHost host;
  fill(host);
  host.attach();
  clsInsertFieldsInRTB merge;
  merge.createAccountantFieldListStructure(false, true);
  return merge.get_FieldList()->toText();
}

template <class Run>
int callsWalked(Run run, const string& leftAtTheFirst) {
  const auto onNewObject = [&](TestHost&) {
    clsInsertFieldsInRTB merge;
    return run(merge);
  };
  return walkFaults({.prepare = fill, .run = onNewObject, .defaultResult = leftAtTheFirst})
      .hostCalls;
}

TEST(MergeFaults, TheProceduresSurviveEachFailedCall) {
  const auto mergeLetter = [](clsInsertFieldsInRTB& merge) {
    setUp(merge);
    return merge.parseRTBComment();
  };
  const auto listDocuments = [](clsInsertFieldsInRTB& merge) {
    merge.taskID = 1;
    return merge.getDocsAndInstructionsList();
  };
  const auto rewrite = [](clsInsertFieldsInRTB& merge) {
    return merge.convertProvinceFields("«WCB Number», «State» and «Contact Full Name»");
  };
  EXPECT_GT(callsWalked(mergeLetter, "Dear ,  of  is due on  (, , )."), 50) << "no list";
  EXPECT_GT(callsWalked(appointmentAndFirmRows, firmRows()), 25) << "one block is missing";
  EXPECT_GT(callsWalked(listDocuments, ""), 5);
  callsWalked(rewrite, "«WCB Number», «State» and «Contact Display Name»");
}

class MergeFault : public MergeTest {
 protected:
  MergeFault() {
    fill(*this);
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
