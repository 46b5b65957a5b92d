#include "commands/template_report.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "host/desk/work/claiming.h"
#include "host/desk/work/template_texts.h"

namespace autonotify::console {
namespace {

std::string fieldsLine(const std::string& about, const std::vector<std::string>& fields) {
  return fields.empty() ? "" : fmt::format("{}: {}\n", about, fmt::join(fields, ", "));
}

}  // namespace

std::string faultLine(const TemplateFault& fault) {
  const bool isNamed = fault.message.find(fault.expression) != std::string::npos;
  return isNamed ? fault.message : fmt::format("{} (at: {})", fault.message, fault.expression);
}

bool reportTemplate(host::Desk& desk, const std::string& text, Id task, Reply& reply) {
  std::string client;
  if (task != noId) client = clientName(desk, doneOrRefuse(host::requireTask(desk, task)));
  const host::TemplateReport report = doneOrRefuse(host::checkTemplate(desk, text, task));
  const bool isSound = report.faults.empty();
  reply.data.update({{"sound", isSound}, {"faults", Json::array()}});
  for (const TemplateFault& fault : report.faults) {
    reply.refuse(faultLine(fault));
    reply.data["faults"].push_back({{"fault", fault.message}, {"at", fault.expression}});
  }
  if (isSound) reply.text += "The template is sound.\n";
  reply.text += fieldsLine("Empty in every notification", report.neverFilled) +
                fieldsLine("Without a value for " + client, report.withoutValue);
  reply.data["neverFilled"] = report.neverFilled;
  if (task != noId) reply.data["withoutValue"] = report.withoutValue;
  return isSound;
}

}  // namespace autonotify::console
