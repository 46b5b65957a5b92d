#include "commands/editing.h"

#include <fmt/format.h>

#include "commands/arguments.h"
#include "commands/template_report.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/kind_templates.h"
#include "host/desk/work/template_file.h"
#include "platform/rich_text.h"

namespace autonotify::console {
namespace {

Json kindJson(const host::ScheduleKind& kind) {
  return {{"scheduleType", kind.id}, {"name", kind.name}};
}

host::KindTemplate requireTemplate(host::Desk& desk, const Arguments& arguments) {
  return doneToKind(host::readKindTemplate(desk, arguments.scheduleType));
}

Reply listTemplates(host::Desk& desk, const Arguments&) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"SCHEDULETYPE", "NAME", "TEMPLATE", "FAULTS"});
  const host::ReadableRows<host::KindTemplate> templates = host::listKindTemplates(desk);
  for (const host::KindTemplate& row : templates.rows) {
    if (!row.errors.empty()) {
      reply.refuse(fmt::format("template {}: {}", row.kind.id, row.errors));
      continue;
    }
    const std::size_t faults = doneOrRefuse(host::checkTemplate(desk, row.text)).faults.size();
    table.add({std::to_string(row.kind.id), row.kind.name, row.isStandard ? "standard" : "own",
               faults == 0 ? "" : std::to_string(faults)});
    Json data = kindJson(row.kind);
    data.update({{"standard", row.isStandard}, {"faults", faults}});
    reply.data.push_back(std::move(data));
  }
  showList(reply, table, templates.unreadable);
  return reply;
}

void describeShowing(CLI::App& command, Arguments& arguments) {
  addKind(command, arguments);
  command.add_flag("--rtf", arguments.rtf, "the template as it is stored, not as plain text");
}

Reply showTemplate(host::Desk& desk, const Arguments& arguments) {
  const host::KindTemplate shown = requireTemplate(desk, arguments);
  const std::string text = arguments.rtf ? shown.text : plainTextOf(shown.text);
  Reply reply;
  (arguments.rtf ? reply.document : reply.text) = withLineEnd(text);
  reply.data = kindJson(shown.kind);
  reply.data.update({{"standard", shown.isStandard}, {"text", text}});
  return reply;
}

void describeSetting(CLI::App& command, Arguments& arguments) {
  addKind(command, arguments);
  addText(command, "FILE", "", "the new template, RTF or plain text, of at most 16 MiB",
          arguments.file)
      ->required();
  addFormer(command, "refuse unless the kind still has this one", arguments);
  command.add_flag("--anyway", arguments.anyway, "take a template that has faults");
}

Reply changeTemplate(host::Desk& desk, const Arguments& arguments, const host::TemplateWish& wish) {
  using enum host::TemplateFate;
  const host::TemplateChange change =
      doneToKind(host::changeKindTemplate(desk, arguments.scheduleType, wish));
  const std::string& name = change.kind.name;
  Reply reply;
  if (change.fate == changedMeanwhile)
    throw Refusal(name + " has another template by now; see it: hvnotify template show " +
                  std::to_string(change.kind.id));
  for (const TemplateFault& fault : change.faults) reply.refuse(faultLine(fault));
  if (change.fate == faulty) {
    reply.complaints.push_back(name + " keeps its template; --anyway takes one with faults");
    return reply;
  }
  const bool isNew = change.fate == written;
  reply.text =
      fmt::format("{} {}.\n", name, isNew ? "has a new template" : "has this template already");
  reply.data = kindJson(change.kind);
  reply.data.update({{"changed", isNew}, {"former", change.former}});
  return reply;
}

Reply setTemplate(host::Desk& desk, const Arguments& arguments) {
  host::TemplateWish wish{doneOrRefuse(host::readTemplateFile(arguments.file))};
  wish.former = readFormer(arguments);
  wish.anyway = arguments.anyway;
  return changeTemplate(desk, arguments, wish);
}

void describeResetting(CLI::App& command, Arguments& arguments) {
  addKind(command, arguments);
  addFormer(command, "refuse unless the kind still has this one", arguments);
}

Reply resetTemplate(host::Desk& desk, const Arguments& arguments) {
  return changeTemplate(desk, arguments, {std::nullopt, readFormer(arguments)});
}

void describeTesting(CLI::App& command, Arguments& arguments) {
  addKind(command, arguments);
  addNumber(command, "--task", "the task to fill it for (see: hvnotify tasks)", arguments.task)
      ->required();
  command.add_flag("--rtf", arguments.rtf, "the text as a notification stores it");
}

Reply testTemplate(host::Desk& desk, const Arguments& arguments) {
  const host::KindTemplate tested = requireTemplate(desk, arguments);
  const host::Task task = doneOrRefuse(host::requireTask(desk, arguments.task));
  std::string text = doneOrRefuse(host::composeText(desk, task, tested.text));
  if (!arguments.rtf) text = plainTextOf(text);
  Reply reply;
  reply.data = kindJson(tested.kind);
  reply.data.update({{"task", task.id}, {"text", text}});
  reportTemplate(desk, tested.text, task.id, reply);
  reply.text += "\n";
  (arguments.rtf ? reply.document : reply.text) += withLineEnd(text);
  return reply;
}

constexpr CommandAction templateActions[] = {
    {"list", "list the kinds and what they have", [](CLI::App&, Arguments&) {}, listTemplates},
    {"show", "show the template of a kind", describeShowing, showTemplate},
    {"set", "give a kind a template from a file", describeSetting, setTemplate},
    {"test", "fill the template of a kind for a task", describeTesting, testTemplate},
    {"reset", "give a kind the standard template", describeResetting, resetTemplate},
};

}  // namespace

void describeTemplate(CLI::App& command, Arguments& arguments) {
  describeActions(command, templateActions, arguments);
}

Reply runTemplate(host::Desk& desk, const Arguments& arguments) {
  return arguments.action->run(desk, arguments);
}

}  // namespace autonotify::console
