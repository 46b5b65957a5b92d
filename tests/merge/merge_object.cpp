#include "merge/merge_host.h"

namespace autonotify::test {
namespace {

using MergeObject = MergeHost;

TEST_F(MergeObject, StartsWithoutIdsAndWithAnEmptyList) {
  for (const Id id : {merge->companyID, merge->contactID, merge->firmID, merge->userID,
                      merge->appointmentID, merge->docketId, merge->taskID})
    EXPECT_EQ(id, noId);
  ASSERT_NE(merge->get_FieldList(), nullptr);
  EXPECT_EQ(merge->get_FieldList()->getEntryCount(), 0);
  EXPECT_EQ(merge->get_MergeFieldListUse(), 1);
  EXPECT_TRUE(merge->UseWordWrap);
  EXPECT_TRUE(merge->ConvertStrToRTF);
  EXPECT_TRUE(merge->ShowListCategoryHeaders);
  EXPECT_FALSE(merge->TestComment);
}

TEST_F(MergeObject, HidesHeadersForTheUsesThatAssignOrUpdate) {
  for (const auto& [use, showsHeaders] :
       std::vector<std::pair<int, bool>>{{1, true}, {2, true}, {3, false}, {4, true}, {5, false}}) {
    merge->ShowListCategoryHeaders = true;
    merge->put_MergeFieldListUse(use);
    EXPECT_EQ(merge->ShowListCategoryHeaders, showsHeaders) << use;
    EXPECT_EQ(merge->get_MergeFieldListUse(), use);
  }
}

TEST_F(MergeObject, ForgetsAllIdsAtOnce) {
  Id clsInsertFieldsInRTB::*const ids[] = {
      &clsInsertFieldsInRTB::companyID,     &clsInsertFieldsInRTB::contactID,
      &clsInsertFieldsInRTB::firmID,        &clsInsertFieldsInRTB::userID,
      &clsInsertFieldsInRTB::appointmentID, &clsInsertFieldsInRTB::docketId,
      &clsInsertFieldsInRTB::taskID};
  for (const auto id : ids) (*merge).*id = 5;
  merge->resetAllItemIDs();
  for (const auto id : ids) EXPECT_EQ((*merge).*id, noId);
}

TEST_F(MergeObject, FindsTheTaskOfAScheduleEntryAlsoInTheArchive) {
  addRow("Tasks", "TaskID", {{"ScheduleIDNum", "40"}});
  const Id task = addRow("Tasks", "TaskID", {{"ScheduleIDNum", "41"}});
  addRow("archiveTasks", "archiveTaskID", {{"ScheduleIDNum", "42"}, {"oldTaskID", "812"}});
  addRow("archiveTasks", "archiveTaskID", {{"ScheduleIDNum", "41"}, {"oldTaskID", "813"}});
  EXPECT_EQ(merge->getTaskIDFromScheduleIDNum(41), task);
  EXPECT_EQ(merge->getTaskIDFromScheduleIDNum(42), 812);
  EXPECT_EQ(merge->getTaskIDFromScheduleIDNum(43), noId);
  beginRecord();
  EXPECT_EQ(merge->getTaskIDFromScheduleIDNum(-1), noId);
  EXPECT_TRUE(host.calls.log().empty()) << "an id below 0 is not looked up";
  merge->put_scheduleID(42);
  EXPECT_EQ(merge->taskID, 812);
}

TEST_F(MergeObject, EndsWithAllRecordsetsClosedAndTheListGone) {
  merge->companyID = addRow("Companies", "CompanyID", {{"CompanyName", "Elm Ltd."}});
  merge->ListType = 8;
  merge->initializeDataRecordsetsForSingleDocMerge();
  EXPECT_EQ(merged("Dear «Company Name», thank you for your visit to our office."),
            "Dear Elm Ltd., thank you for your visit to our office.");
  beginRecord();
  merge->Terminate();
  const auto& log = host.calls.log();
  EXPECT_EQ(std::count(log.begin(), log.end(), "closeRecordset"), 2);  // company and software
  EXPECT_EQ(merge->get_FieldList(), nullptr);
  merge->Terminate();
  EXPECT_EQ(std::count(log.begin(), log.end(), "closeRecordset"), 2);
}

}  // namespace
}  // namespace autonotify::test
