#include "commands/templates.h"

#include <fmt/format.h>

#include <algorithm>

#include "ProgressLine.h"
#include "TextTable.h"
#include "commands/arguments.h"
#include "commands/template_report.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/carry_template.h"
#include "host/desk/work/propagate_template.h"
#include "host/desk/work/template_texts.h"
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

auto progressOf(ProgressLine& line) {
  return [&line](int done, int rows) {
    if (done % 50 == 0 || done == rows)
      line.show(fmt::format("{} of {} unsent notifications looked at", done, rows));
  };
}

struct CarryRow {
  host::CarryResult result;
  /// Of the table of those that change; empty for what is not listed.
  const char* shown;
  /// Behind a number of texts: in a dry run, and when all is done.
  const char* would;
  const char* done;
};
constexpr CarryRow carryRows[] = {
    {host::CarryResult::changes, "changes", "would change", "composed anew"},
    {host::CarryResult::edited, "edited since", "edited since would change", "edited since stay"},
    {host::CarryResult::alike, "", "already so", "already so"},
    {host::CarryResult::personal, "", "of personal clients stay", "of personal clients stay"},
    {host::CarryResult::settled, "", "sent meanwhile", "sent meanwhile"},
};

std::string numbersOf(const std::vector<host::CarriedText>& texts, bool isDryRun) {
  std::string line;
  for (const CarryRow& row : carryRows) {
    const auto count = std::ranges::count(texts, row.result, &host::CarriedText::result);
    if (count == 0 && row.result != host::CarryResult::changes) continue;
    line +=
        fmt::format("{}{} {}", line.empty() ? "" : ", ", count, isDryRun ? row.would : row.done);
  }
  return line;
}

std::string whyNotCarried(const host::CarriedText& text) {
  using enum host::CarryResult;
  if (text.result == failed) return text.detail;
  if (text.result == atWorkElsewhere) return "another desk is at work on it; try again later";
  return text.result == notThere ? "it was deleted meanwhile" : "";
}

void showText(const host::CarriedText& text, TextTable& table, Reply& reply) {
  const std::string fault = whyNotCarried(text);
  if (!fault.empty()) reply.refuse(fmt::format("notification {}: {}", text.id, fault));
  const auto* const row = std::ranges::find(carryRows, text.result, &CarryRow::result);
  if (row == std::end(carryRows) || !*row->shown) return;
  table.add({std::to_string(text.id), host::channelName(text.about->channel), text.about->client,
             text.about->item, row->shown});
  reply.data["texts"].push_back(
      {{"notification", text.id}, {"edited", text.result == host::CarryResult::edited}});
}

Reply carryUnedited(host::Desk& desk, const Arguments& arguments) {
  host::CarryWish wish{readFormer(arguments), arguments.dryRun};
  ProgressLine line;
  const host::CarriedTexts carried =
      doneToKind(host::carryTemplate(desk, arguments.scheduleType, wish, progressOf(line)));
  Reply reply;
  reply.data = {{"scheduleType", carried.kind.id}, {"texts", Json::array()}};
  TextTable table({"NOTIFICATION", "CHANNEL", "CLIENT", "TASK", "TEXT"});
  for (const host::CarriedText& text : carried.texts) showText(text, table, reply);
  if (!table.isEmpty()) reply.text = table.toText() + "\n";
  reply.text +=
      fmt::format("{}: {}{}.\n", carried.kind.name, numbersOf(carried.texts, arguments.dryRun),
                  wish.former ? "" : " (--former tells which a person has edited)");
  return reply;
}

Reply carryIntoAll(host::Desk& desk, const Arguments& arguments) {
  ProgressLine line;
  const host::Propagation done =
      doneToKind(host::propagateTemplate(desk, arguments.scheduleType, progressOf(line)));
  Reply reply;
  reply.text = fmt::format("{}: {} unsent notification{} composed anew", done.kind.name,
                           done.composed, done.composed == 1 ? "" : "s");
  if (done.left > 0)
    reply.text += fmt::format("; {} of personal clients left as they are", done.left);
  reply.text += ".\n";
  reply.data = {{"scheduleType", done.kind.id}, {"composed", done.composed}, {"left", done.left}};
  return reply;
}

}  // namespace

void describePropagate(CLI::App& command, Arguments& arguments) {
  addText(command, "KIND", "NUMBER or NAME",
          "the kind whose template has changed; without one: a list", arguments.scheduleType);
  CLI::Option* former =
      addFormer(command, "the template that the texts were composed by", arguments);
  command.add_flag("--dry-run", arguments.dryRun,
                   "say which texts would change, with --former which a person has edited");
  command
      .add_flag("--keep-edited", arguments.keepEdited, "spare the texts that a person has edited")
      ->needs(former);
}

Reply runPropagate(host::Desk& desk, const Arguments& arguments) {
  if (arguments.scheduleType.empty()) return listKinds(desk);
  const bool isCareful = arguments.dryRun || arguments.keepEdited;
  if (!isCareful && !arguments.former.empty())
    throw Refusal("--former goes with --dry-run or --keep-edited (see: hvnotify propagate --help)",
                  exitUsage);
  return isCareful ? carryUnedited(desk, arguments) : carryIntoAll(desk, arguments);
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
