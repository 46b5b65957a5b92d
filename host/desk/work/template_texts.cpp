#include "host/desk/work/template_texts.h"

#include "host/desk/work/claiming.h"
#include "platform/rich_text.h"

namespace autonotify::host {
namespace {

std::string firstFault(clsNotificationTools& tools, const std::string& text) {
  const bool isRich = isRichText(text);
  std::string fault = tools.findTemplateFault(text, isRich);
  const bool hasBareMarks = text.find("«") != text.npos || text.find("»") != text.npos;
  if (fault.empty() && isRich && hasBareMarks) fault = tools.findTemplateFault(text, false);
  return fault;
}

}  // namespace

Outcome<std::string> composeText(Desk& desk, const Task& task) {
  return askComponent(desk, subjectOf(WorkItem::task, task.id),
                      [&] { return desk.control().cls_generateClientAutoNotifyComment(task.id); });
}

Outcome<std::string> composeText(Desk& desk, const Task& task, const std::string& templateText) {
  return askComponent(desk, subjectOf(WorkItem::task, task.id),
                      [&] { return desk.tools().mergeTemplate(templateText, task.id); });
}

Outcome<std::string> findTemplateFault(Desk& desk, const std::string& text) {
  return askComponent(desk, "template", [&] { return firstFault(desk.tools(), text); });
}

Outcome<std::vector<MergeFieldInfo>> listMergeFields(Desk& desk, MergeUse use) {
  return askComponent(desk, "fields", [&] { return desk.tools().listMergeFields(use); });
}

}  // namespace autonotify::host
