#pragma once

#include <functional>
#include <string>
#include <vector>

#include "contract/merge_fields.h"
#include "platform/Value.h"

namespace autonotify {

// What clsNotificationTools tells and changes of templates; see there.

std::string findTemplateFault(const std::string& templateText, bool isRTF);
void propagateTemplate(Id scheduleTypeID,
                       const std::function<void(int rowsDone, int rows)>& progress);
std::vector<MergeFieldInfo> listMergeFields(MergeUse use);

}  // namespace autonotify
