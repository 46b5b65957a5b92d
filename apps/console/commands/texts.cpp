#include "commands/texts.h"

#include <fmt/format.h>

#include <array>

#include "commands/arguments.h"
#include "commands/template_report.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/rows/item_names.h"
#include "host/desk/work/claiming.h"
#include "host/desk/work/kind_templates.h"
#include "host/desk/work/template_file.h"
#include "host/desk/work/template_texts.h"
#include "outcome_words.h"
#include "platform/date_time_text.h"
#include "platform/rich_text.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

/// What the six fields of a channel hold; null for one that it does not use.
struct FieldNames {
  notifyType channel;
  std::array<const char*, 6> names;
};
constexpr FieldNames fieldNames[] = {
    {nt_Email, {"To", "Cc", "Bcc", "Subject", nullptr, nullptr}},
    {nt_Fax, {"To", "From", "Sender's fax", "Receiver's fax", "Pages", "Subject"}},
    {nt_Letter, {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr}},
    {nt_Phone, {"To", "Phone number", "Times to call", nullptr, nullptr, nullptr}},
};

std::array<const char*, 6> namesOf(int channel) {
  if (const FieldNames* row = host::findChannel(fieldNames, channel)) return row->names;
  return {"Field1", "Field2", "Field3", "Field4", "Field5", "Field6"};
}

std::string readTemplate(const std::string& path) {
  return doneOrRefuse(host::readTemplateFile(path));
}

/// A template that was written without formats is shown without them.
bool isPlainText(const std::string& path) {
  return !path.empty() && !isRichText(doneOrRefuse(host::readTextFile(path)));
}

}  // namespace

void describeShow(CLI::App& command, Arguments& arguments) {
  addNotification(command, arguments);
  command.add_flag("--rtf", arguments.rtf, "the stored rich text alone, for a file of its own");
}

Reply runShow(host::Desk& desk, const Arguments& arguments) {
  const host::Notification row =
      doneOrRefuse(host::requireNotification(desk, arguments.notification));
  const std::string channel = host::channelName(row.channel);
  const std::string client = clientName(desk, row);
  const std::string item = itemName(desk, row);
  const std::string state = stateName(stateOf(row));
  const std::string text = arguments.rtf ? row.memo : plainTextOf(row.memo);
  Reply reply;
  reply.text = fmt::format("Notification {} by {}, {}\n", row.id, channel, state);
  reply.text += labelled("Client", client) + labelled("Task", item) +
                labelled("Date", host::dayText(row.date));
  if (!row.sentTime.isZero()) reply.text += labelled("Sent", dateTimeText(row.sentTime));
  reply.data = {{"notification", row.id},
                {"channel", channel},
                {"state", state},
                {"client", client},
                {"companyId", row.companyId},
                {"contactId", row.contactId},
                {"task", row.scheduleId},
                {"name", item},
                {"date", dayJson(row.date)},
                {"sentTime", momentJson(row.sentTime)}};
  const auto names = namesOf(row.channel);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!names[i]) continue;
    reply.text += labelled(names[i], row.fields[i]);
    reply.data["fields"][names[i]] = row.fields[i];
  }
  reply.data["text"] = text;
  if (arguments.rtf) {
    reply.text.clear();
    reply.document = withLineEnd(text);
  } else {
    reply.text += "\n" + withLineEnd(text);
  }
  return reply;
}

void describeMerge(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
  addText(command, "--template", "FILE",
          "a template to try instead of the task's own (at most 16 MiB)", arguments.file);
  command.add_flag("--plain", arguments.plain,
                   "plain text instead of the stored form, as of a template in plain text");
}

Reply runMerge(host::Desk& desk, const Arguments& arguments) {
  const host::Task task = doneOrRefuse(host::requireTask(desk, arguments.task));
  const bool isTried = !arguments.file.empty();
  std::string used = isTried ? readTemplate(arguments.file) : std::string();
  std::string text =
      doneOrRefuse(isTried ? host::composeText(desk, task, used) : host::composeText(desk, task));
  if (!isTried) used = doneOrRefuse(host::readTaskTemplate(desk, task.id));
  Reply reply;
  for (const TemplateFault& fault : doneOrRefuse(host::checkTemplate(desk, used)).faults)
    reply.refuse(faultLine(fault));
  const bool isPlain = arguments.plain || isPlainText(arguments.file);
  if (isPlain) text = plainTextOf(text);
  (isPlain ? reply.text : reply.document) = withLineEnd(text);
  reply.data = {{"task", task.id}, {"text", text}};
  return reply;
}

void describeCheck(CLI::App& command, Arguments& arguments) {
  addText(command, "FILE", "", "the template, RTF or plain text, of at most 16 MiB", arguments.file)
      ->required();
  addNumber(command, "--task", "a task, to tell what its client has no value for", arguments.task);
}

Reply runCheck(host::Desk& desk, const Arguments& arguments) {
  Reply reply;
  reply.data["file"] = arguments.file;
  reportTemplate(desk, readTemplate(arguments.file), arguments.task, reply);
  return reply;
}

}  // namespace autonotify::console
