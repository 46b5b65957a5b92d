#pragma once

#include <string>
#include <vector>

#include "contract/merge_fields.h"
#include "platform/Value.h"

namespace autonotify {

// In which words a notification starts: the template of its kind of schedule entry, merged with the
// records of the task and its client. RTF when the template is RTF.

/// The merged text for a schedule entry. Empty when there is no such entry, its kind has no row of
/// its own nor by fallback, or the database is closed.
std::string generateClientAutoNotifyComment(Id scheduleID);

/// The same with `templateText` in place of the kind's template.
std::string generateCommentFromTemplate(const std::string& templateText, Id scheduleID);

/// The fields of a template and what becomes of them for the entry; without one (-1) nothing has a
/// value.
std::vector<TemplateField> listTemplateFields(const std::string& templateText, Id scheduleID);

/// The template of a kind of schedule entry, by the same fallbacks as its period; the default
/// comment when the kind's own is empty; empty when no kind is found.
std::string getNotificationComment(Id totalNum, Id scheduleNum);

/// `templateText` merged with the records of these ids. An id below 0 is not part of the merge.
std::string generateComment(const std::string& templateText, Id scheduleID, Id taskID, Id companyID,
                            Id contactID);

}  // namespace autonotify
