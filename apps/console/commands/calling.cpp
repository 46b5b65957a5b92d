#include "commands/calling.h"

#include <fmt/format.h>

#include "commands/arguments.h"
#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/rows/item_names.h"
#include "host/desk/work/due_list.h"
#include "host/desk/work/note_call.h"
#include "outcome_words.h"
#include "platform/rich_text.h"

namespace autonotify::console {
namespace {

using host::CallFate;
using host::CallResult;
using host::Notification;

Json callJson(host::Desk& desk, const Notification& row) {
  return {{"notification", row.id},
          {"date", dayJson(row.date)},
          {"to", row.fields[Notification::phoneTo]},
          {"number", row.fields[Notification::phoneNumber]},
          {"times", row.fields[Notification::phoneTimes]},
          {"client", clientName(desk, row)},
          {"task", row.scheduleId},
          {"name", itemName(desk, row)},
          {"text", plainTextOf(row.memo)}};
}

/// What to type when the call was made, and when nobody answered.
std::string commandText(Id notification) {
  const std::string command = fmt::format("hvnotify call {} --", notification);
  return labelled("Called", command + "made") + labelled("No answer", command + "no-answer");
}

/// The call as a person works it off: who and when, and below it what is to be said.
std::string callText(const Json& call) {
  const auto line = [&](const char* label, const char* key) {
    return labelled(label, call[key].get<std::string>());
  };
  return fmt::format("Notification {}, due {}\n", call["notification"].get<Id>(),
                     call["date"].is_null() ? "-" : call["date"].get<std::string>()) +
         line("To", "to") + line("Phone number", "number") + line("Times to call", "times") +
         line("Client", "client") + line("Task", "name") +
         commandText(call["notification"].get<Id>()) + "\n" +
         withLineEnd(call["text"].get<std::string>());
}

/// Why nothing was noted.
std::string refusalOf(const host::NotedCall& call) {
  const std::string why =
      call.fate == CallFate::noCall
          ? fmt::format("is by {}, not by phone", host::channelName(call.row.channel))
          : stateWords(stateOf(call.row));
  return fmt::format("notification {} {}; nothing was noted", call.row.id, why);
}

}  // namespace

void describeCalls(CLI::App&, Arguments&) {}

Reply runCalls(host::Desk& desk, const Arguments&) {
  Reply reply;
  reply.data = Json::array();
  const host::ReadableRows<Notification> due = host::readWholeDue(desk, nt_Phone, desk.today());
  const auto batch = host::lookupBatchFor(desk, due.rows.size());
  for (const Notification& row : due.rows) {
    reply.data.push_back(callJson(desk, row));
    reply.text += (reply.text.empty() ? "" : "\n") + callText(reply.data.back());
  }
  for (const host::UnreadableRow& row : due.unreadable) reply.refuse(row.description());
  if (reply.text.empty() && due.unreadable.empty()) reply.text = "No call is due.\n";
  return reply;
}

void describeCall(CLI::App& command, Arguments& arguments) {
  addNotification(command, arguments);
  auto* made = command.add_flag("--made", arguments.made, "the call was made: mark it sent");
  command.add_flag("--no-answer", arguments.noAnswer, "nobody answered: it stays due")
      ->excludes(made);
  addReader(command, "--note", "TEXT",
            "stands with time, caller and result in a line that every call leaves behind the "
            "notification's text, until propagate composes that anew",
            [&arguments](const std::string& text) {
              if (!isValidUtf8(text)) throw CLI::ValidationError("--note", "the text is not UTF-8");
              arguments.note = text;
            });
}

Reply runCall(host::Desk& desk, const Arguments& arguments) {
  if (!arguments.made && !arguments.noAnswer)
    throw Refusal("give --made or --no-answer (see: hvnotify call --help)", exitUsage);
  const host::NotedCall call = doneOrRefuse(
      host::noteCall(desk, arguments.notification,
                     arguments.made ? CallResult::made : CallResult::noAnswer, arguments.note));
  if (call.fate != CallFate::noted) throw Refusal(refusalOf(call));
  Reply reply = rowReply(desk, call.row);
  reply.text += call.line + "\n";
  reply.data["line"] = call.line;
  return reply;
}

}  // namespace autonotify::console
