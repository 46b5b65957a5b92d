#include "scheduling/modNotificationComments.h"

#include <memory>

#include "contract/recordsets.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_kinds.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "store/modNotificationLinks.h"

namespace autonotify {
namespace {

/// Company and contact of a merge. An entry without a client leaves both at 0, and the merge finds
/// none.
struct MergeClient {
  Id companyID = 0;
  Id contactID = 0;
};

MergeClient readClient(Step& step, RecordsetHandle handle) {
  MergeClient client;
  const Id clientNum = readId(step, handle, "ClientNum");
  if (clientNum >= 0) {
    step.assign(client.companyID, [&] { return clients().getCompanyIDFromClientID(clientNum); });
    step.assign(client.contactID, [&] { return clients().getDefaultContactID(client.companyID); });
    return client;
  }
  const Id contactID = readId(step, handle, "ContactIDNum");
  if (contactID >= 0) client = {noId, contactID};
  return client;
}

/// Merges with the records of the entry and its client. `templateOf(totalNum, scheduleNum)` gives
/// the template.
template <class TemplateOf>
std::string mergeForEntry(const char* tag, Id scheduleID, TemplateOf&& templateOf) {
  return procedure(tag, std::string{}, [&](Step& step, std::string& result) {
    if (!isDatabaseOpen(step)) return;
    const char* const statement =
        "SELECT Schedule.ScheduleID, Schedule.ClientNum, Schedule.ContactIDNum, "
        "Schedule.totalNum, Schedule.scheduleNum FROM Schedule WHERE ScheduleID=";
    withRow(step, statement, scheduleID, keysetRead, [&](RecordsetHandle handle) {
      const MergeClient client = readClient(step, handle);
      const Id totalNum = readId(step, handle, "totalNum");
      const Id scheduleNum = readId(step, handle, "scheduleNum");
      const std::string text = templateOf(totalNum, scheduleNum);
      const Id taskID = getTaskIDFromScheduleID(scheduleID);
      result = generateComment(text, scheduleID, taskID, client.companyID, client.contactID);
    });
  });
}

}  // namespace

std::string generateClientAutoNotifyComment(Id scheduleID) {
  return mergeForEntry("Morvane.exe-modNotificationComments-generateClientAutoNotifyComment",
                       scheduleID, getNotificationComment);
}

std::string generateCommentFromTemplate(const std::string& templateText, Id scheduleID) {
  return mergeForEntry("Morvane.exe-modNotificationComments-generateCommentFromTemplate",
                       scheduleID, [&](Id, Id) { return templateText; });
}

std::string getNotificationComment(Id totalNum, Id scheduleNum) {
  return procedure("Morvane.exe-modNotificationComments-getNotificationComment", std::string{},
                   [&](Step&, std::string& result) {
                     clsAutoNotifyTemplate kind;
                     if (kind.openWithTotalNumAndScheduleNum(totalNum, scheduleNum, false)) {
                       result = kind.get_notificationComment();
                     }
                   });
}

std::string generateComment(const std::string& templateText, Id scheduleID, Id taskID, Id companyID,
                            Id contactID) {
  return procedure("Morvane.exe-modNotificationComments-generateComment", std::string{},
                   [&](Step& step, std::string& result) {
                     std::unique_ptr<clsInsertFieldsInRTB> merge;
                     step.assign(merge, [] { return std::make_unique<clsInsertFieldsInRTB>(); });
                     if (!merge) return;
                     merge->put_MergeFieldListUse(field_list_use::merging);
                     merge->ListType = field_list_type::task;
                     merge->TemplateText = templateText;
                     merge->companyID = companyID;
                     merge->contactID = contactID;
                     // Setting the schedule entry fills the task too; the one given wins.
                     merge->put_scheduleID(scheduleID);
                     merge->taskID = taskID;
                     merge->TestComment = false;
                     merge->ConvertStrToRTF = true;
                     merge->initializeDataRecordsetsForSingleDocMerge();
                     result = merge->parseRTBComment();
                   });
}

}  // namespace autonotify
