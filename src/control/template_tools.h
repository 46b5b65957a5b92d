#pragma once

#include <functional>
#include <string>
#include <vector>

#include "contract/merge_fields.h"
#include "platform/Value.h"

namespace autonotify {

// What clsNotificationTools tells and changes of templates; see there.

std::vector<TemplateFault> findTemplateFaults(const std::string& templateText, bool isRTF);
std::string readTemplate(Id scheduleTypeID);
std::string composeNotification(const std::string& templateText, Id notificationID);
void recomposeNotification(const std::string& templateText, Id notificationID);
void propagateTemplate(Id typeId, const std::function<void(int rowsDone, int rows)>& progress);
std::vector<MergeFieldInfo> listMergeFields(MergeUse use);

}  // namespace autonotify
