#include "commands/texts.h"

#include <fmt/format.h>

#include <array>

#include "commands/arguments.h"
#include "notifications.h"
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
  if (const FieldNames* row = findChannel(fieldNames, channel)) return row->names;
  return {"Field1", "Field2", "Field3", "Field4", "Field5", "Field6"};
}

std::string line(const char* name, const std::string& value) {
  const std::string label = std::string(name) + ":";
  return value.empty() ? label + "\n" : fmt::format("{:<15} {}\n", label, value);
}

std::string withLineEnd(std::string text) {
  if (!text.empty() && text.back() != '\n') text += '\n';
  return text;
}

/// A template from a file: text that is no UTF-8 and no RTF, or holds a NUL, cannot be one.
std::string readTemplate(const std::string& path) {
  std::string text = readFile(path);
  if (text.find('\0') != std::string::npos) throw Refusal(path + " holds a NUL byte");
  if (!isValidUtf8(text)) throw Refusal(path + " is not UTF-8 text");
  return text;
}

/// A rich text may spell its marks in both ways, and both are filled.
std::string findFault(Session& session, const std::string& text) {
  const bool isRich = isRichText(text);
  std::string fault = session.tools().findTemplateFault(text, isRich);
  const bool hasBareMarks = text.find("«") != text.npos || text.find("»") != text.npos;
  if (fault.empty() && isRich && hasBareMarks)
    fault = session.tools().findTemplateFault(text, false);
  return fault;
}

}  // namespace

void describeShow(CLI::App& command, Arguments& arguments) {
  addNotification(command, arguments);
  command.add_flag("--rtf", arguments.rtf, "the text as it is stored, not as plain text");
}

Reply runShow(Session& session, const Arguments& arguments) {
  const Notification row = loadNotification(session, arguments.notification);
  const std::string client = clientName(session, row);
  const std::string item = itemName(session, row);
  const std::string state = stateName(stateOf(row));
  const std::string text = arguments.rtf ? row.memo : plainTextOf(row.memo);
  Reply reply;
  reply.text = fmt::format("Notification {} by {}, {}\n", row.id, channelName(row.channel), state);
  reply.text += line("Client", client) + line("Task", item) + line("Date", dayText(row.date));
  if (!row.sentTime.isZero()) reply.text += line("Sent", dateTimeText(row.sentTime));
  reply.data = {{"notification", row.id},
                {"channel", channelName(row.channel)},
                {"state", state},
                {"client", client},
                {"companyId", row.companyId},
                {"contactId", row.contactId},
                {"task", row.scheduleId},
                {"name", item},
                {"date", dayJson(row.date)},
                {"sentTime", row.sentTime.isZero() ? Json() : Json(dateTimeText(row.sentTime))}};
  const auto names = namesOf(row.channel);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!names[i]) continue;
    reply.text += line(names[i], row.fields[i]);
    reply.data["fields"][names[i]] = row.fields[i];
  }
  reply.text += "\n";
  (arguments.rtf ? reply.document : reply.text) += withLineEnd(text);
  reply.data["text"] = text;
  return reply;
}

void describeMerge(CLI::App& command, Arguments& arguments) {
  addTask(command, arguments);
  addText(command, "--template", "FILE", "a template to try instead of the task's own",
          arguments.file);
  command.add_flag("--plain", arguments.plain, "plain text instead of the stored form");
}

Reply runMerge(Session& session, const Arguments& arguments) {
  const Task task = loadTask(session, arguments.task);
  std::string text;
  session.callOrRefuse(fmt::format("task {}", task.id), [&] {
    text = arguments.file.empty()
               ? session.control().cls_generateClientAutoNotifyComment(task.id)
               : session.tools().mergeTemplate(readTemplate(arguments.file), task.id);
  });
  if (arguments.plain) text = plainTextOf(text);
  Reply reply;
  (arguments.plain ? reply.text : reply.document) = withLineEnd(text);
  reply.data = {{"task", task.id}, {"text", text}};
  if (text.empty() && !arguments.file.empty()) {
    reply.exitCode = exitRefused;
    reply.complaints.push_back(
        fmt::format("{} gives an empty text; a short template is read as the name of one field",
                    arguments.file));
  }
  return reply;
}

void describeCheck(CLI::App& command, Arguments& arguments) {
  addText(command, "FILE", "", "the template, RTF or plain text", arguments.file)->required();
}

Reply runCheck(Session& session, const Arguments& arguments) {
  const std::string text = readTemplate(arguments.file);
  std::string fault;
  const std::string errors = session.errorsOf([&] { fault = findFault(session, text); });
  if (fault.empty()) fault = errors;
  Reply reply;
  reply.data = {{"file", arguments.file}, {"sound", fault.empty()}, {"fault", fault}};
  if (fault.empty()) {
    reply.text = "The template is sound.\n";
  } else {
    reply.exitCode = exitRefused;
    reply.complaints.push_back(fault);
  }
  return reply;
}

}  // namespace autonotify::console
