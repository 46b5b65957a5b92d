#include "host/desk/work/template_texts.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "host/desk/work/claiming.h"
#include "platform/rich_text.h"

namespace autonotify::host {
namespace {

std::vector<TemplateFault> faultsOf(clsNotificationTools& tools, const std::string& text) {
  const bool isRich = isRichText(text);
  std::vector<TemplateFault> faults = tools.findTemplateFaults(text, isRich);
  const bool hasBareMarks = text.find("«") != text.npos || text.find("»") != text.npos;
  if (isRich && hasBareMarks)
    std::ranges::copy(tools.findTemplateFaults(text, false), std::back_inserter(faults));
  return faults;
}

/// A piece of a template as people see it.
std::string seen(const std::string& piece, bool isRich) {
  return isRich ? plainTextOf("{\\rtf1\\ansi " + piece + "}") : piece;
}

TemplateReport reportOn(clsNotificationTools& tools, const std::string& text, Id task) {
  const bool isRich = isRichText(text);
  TemplateReport report{faultsOf(tools, text), {}, {}};
  std::set<std::string> faulty;
  for (TemplateFault& fault : report.faults) {
    fault.expression = seen(fault.expression, isRich);
    faulty.insert("«" + fault.expression + "»");
  }
  for (const TemplateField& field : tools.listTemplateFields(text, task)) {
    const std::string token = seen(field.token, isRich);
    if (field.fate == FieldFate::filled || faulty.contains(token)) continue;
    const bool isNever = field.fate == FieldFate::neverFilled;
    if (isNever || task >= 0) (isNever ? report.neverFilled : report.withoutValue).push_back(token);
  }
  return report;
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

Outcome<TemplateReport> checkTemplate(Desk& desk, const std::string& text, Id task) {
  return askComponent(desk, "template", [&] { return reportOn(desk.tools(), text, task); });
}

Outcome<std::vector<MergeFieldInfo>> listMergeFields(Desk& desk, MergeUse use) {
  return askComponent(desk, "fields", [&] { return desk.tools().listMergeFields(use); });
}

}  // namespace autonotify::host
