#include "commands/templates.h"

#include <fmt/format.h>

#include "ProgressLine.h"
#include "TextTable.h"
#include "commands/arguments.h"
#include "host/desk/work/propagate_template.h"
#include "host/desk/work/template_texts.h"
#include "outcome_words.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

struct UseWord {
  const char* word;
  MergeUse use;
};
constexpr UseWord useWords[] = {
    {"appointment", MergeUse::appointment},
    {"task", MergeUse::task},
    {"time-entry", MergeUse::timeEntry},
    {"client", MergeUse::client},
};

/// In the order of MergeFieldInfo::dataType, from 1.
constexpr const char* typeNames[] = {"text",      "date",     "time",     "currency",
                                     "yes or no", "duration", "documents"};

const char* typeName(int dataType) {
  const bool isKnown = dataType >= 1 && dataType <= static_cast<int>(std::size(typeNames));
  return isKnown ? typeNames[dataType - 1] : "text";
}

Reply listKinds(host::Desk& desk) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"SCHEDULETYPE", "NAME"});
  const host::ReadableRows<host::ScheduleKind> kinds = host::readScheduleKinds(desk);
  for (const host::ScheduleKind& kind : kinds.rows) {
    table.add({std::to_string(kind.id), kind.name + (kind.isFamily() ? " (all of them)" : "")});
    reply.data.push_back(
        {{"scheduleType", kind.id}, {"name", kind.name}, {"wholeFamily", kind.isFamily()}});
  }
  showList(reply, table, kinds.unreadable);
  return reply;
}

host::Outcome<host::Propagation> propagate(host::Desk& desk, Id kind) {
  ProgressLine line;
  return host::propagateTemplate(desk, kind, [&](int done, int rows) {
    if (done % 50 == 0 || done == rows)
      line.show(fmt::format("{} of {} unsent notifications looked at", done, rows));
  });
}

}  // namespace

void describePropagate(CLI::App& command, Arguments& arguments) {
  addNumber(command, "SCHEDULETYPE", "the kind whose template has changed; without one: a list",
            arguments.scheduleType);
}

Reply runPropagate(host::Desk& desk, const Arguments& arguments) {
  if (!arguments.scheduleType) return listKinds(desk);
  const auto outcome = propagate(desk, *arguments.scheduleType);
  if (!outcome && outcome.refused().why == host::Refused::Why::notThere)
    throw Refusal(wordsOf(outcome.refused()) + " (see the list: hvnotify propagate)");
  const host::Propagation done = doneOrRefuse(outcome);
  Reply reply;
  reply.text = fmt::format("{}: {} unsent notification{} composed anew", done.kind.name,
                           done.composed, done.composed == 1 ? "" : "s");
  if (done.left > 0)
    reply.text += fmt::format("; {} of personal clients left as they are", done.left);
  reply.text += ".\n";
  reply.data = {{"scheduleType", done.kind.id}, {"composed", done.composed}, {"left", done.left}};
  return reply;
}

void describeFields(CLI::App& command, Arguments& arguments) {
  addChoice(command, "--type", "TYPE", useWords, " (default: task)",
            [&arguments](const UseWord& row) { arguments.mergeUse = row.use; });
}

Reply runFields(host::Desk& desk, const Arguments& arguments) {
  Reply reply;
  reply.data = Json::array();
  TextTable table({"FIELD", "TYPE", "FROM", "SAMPLE"});
  for (const MergeFieldInfo& field :
       doneOrRefuse(host::listMergeFields(desk, arguments.mergeUse))) {
    const std::string sample = replaceAll(replaceAll(field.sample, "\r\n", " "), "\n", " ");
    table.add({field.token, typeName(field.dataType), field.group, sample});
    reply.data.push_back({{"field", field.token},
                          {"type", typeName(field.dataType)},
                          {"group", field.group},
                          {"sample", field.sample}});
  }
  reply.text = table.toText();
  return reply;
}

}  // namespace autonotify::console
