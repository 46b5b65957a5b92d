#include "scheduling/modNotificationComments.h"

#include <memory>

#include "contract/rows.h"
#include "contract/tags.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_kinds.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "store/modNotificationLinks.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modNotificationComments", name>;

constexpr const char* entryWithClient =
    "SELECT Schedule.ScheduleID, Schedule.ClientNum, Schedule.ContactIDNum, "
    "Schedule.totalNum, Schedule.scheduleNum FROM Schedule WHERE ScheduleID=";

/// Company and contact of a merge. An entry without a client leaves both at 0, and the merge finds
/// none.
struct MergeClient {
  Id companyID = 0;
  Id contactID = 0;
};

void setUp(clsInsertFieldsInRTB& merge, const std::string& templateText, Id scheduleID, Id taskID,
           const MergeClient& client) {
  merge.put_MergeFieldListUse(field_list_use::merging);
  merge.ListType = field_list_type::task;
  merge.TemplateText = templateText;
  merge.companyID = client.companyID;
  merge.contactID = client.contactID;
  // Setting the schedule entry fills the task too; the one given wins.
  merge.put_scheduleID(scheduleID);
  merge.taskID = taskID;
  merge.TestComment = false;
  merge.ConvertStrToRTF = true;
  merge.initializeDataRecordsetsForSingleDocMerge();
}

MergeClient readClient(const Row& entry) {
  MergeClient client;
  const Id clientNum = entry.id("ClientNum");
  if (clientNum >= 0) {
    Step& step = entry.step();
    step.assign(client.companyID, [&] { return clients().getCompanyIDFromClientID(clientNum); });
    step.assign(client.contactID, [&] { return clients().getDefaultContactID(client.companyID); });
    return client;
  }
  const Id contactID = entry.id("ContactIDNum");
  if (contactID >= 0) client = {noId, contactID};
  return client;
}

/// Merges with the records of the entry and its client. `templateOf(totalNum, scheduleNum)` gives
/// the template.
template <class TemplateOf>
std::string mergeForEntry(std::string_view frameTag, Id scheduleID, TemplateOf&& templateOf) {
  return procedure(frameTag, std::string{}, [&](Step& step, std::string& result) {
    if (!isDatabaseOpen(step)) return;
    const Rows entry(step, entryWithClient, scheduleID, keysetRead);
    if (!entry) return;
    const MergeClient client = readClient(entry);
    const Id totalNum = entry.id("totalNum");
    const Id scheduleNum = entry.id("scheduleNum");
    const std::string text = templateOf(totalNum, scheduleNum);
    const Id taskID = getTaskIDFromScheduleID(scheduleID);
    result = generateComment(text, scheduleID, taskID, client.companyID, client.contactID);
  });
}

}  // namespace

std::string generateClientAutoNotifyComment(Id scheduleID) {
  return mergeForEntry(tagOf<"generateClientAutoNotifyComment">, scheduleID,
                       getNotificationComment);
}

std::string generateCommentFromTemplate(const std::string& templateText, Id scheduleID) {
  const auto given = [&](Id, Id) { return templateText; };
  return mergeForEntry(tagOf<"generateCommentFromTemplate">, scheduleID, given);
}

std::vector<TemplateField> listTemplateFields(const std::string& templateText, Id scheduleID) {
  using Fields = std::vector<TemplateField>;
  return procedure(tagOf<"listTemplateFields">, Fields{}, [&](Step& step, Fields& result) {
    MergeClient client{noId, noId};
    if (const Rows entry(step, entryWithClient, scheduleID, keysetRead); entry)
      client = readClient(entry);
    clsInsertFieldsInRTB merge;
    setUp(merge, templateText, scheduleID, getTaskIDFromScheduleID(scheduleID), client);
    result = merge.listTemplateFields();
  });
}

std::string getNotificationComment(Id totalNum, Id scheduleNum) {
  return procedure(tagOf<"getNotificationComment">, std::string{}, [&](Step&, std::string& result) {
    clsAutoNotifyTemplate kind;
    if (kind.openWithTotalNumAndScheduleNum(totalNum, scheduleNum, false))
      result = kind.get_notificationComment();
  });
}

std::string generateComment(const std::string& templateText, Id scheduleID, Id taskID, Id companyID,
                            Id contactID) {
  return procedure(tagOf<"generateComment">, std::string{}, [&](Step& step, std::string& result) {
    std::unique_ptr<clsInsertFieldsInRTB> merge;
    step.assign(merge, [] { return std::make_unique<clsInsertFieldsInRTB>(); });
    if (!merge) return;
    setUp(*merge, templateText, scheduleID, taskID, {companyID, contactID});
    result = merge->parseRTBComment();
  });
}

}  // namespace autonotify
