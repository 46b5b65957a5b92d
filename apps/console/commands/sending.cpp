#include "commands/sending.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "TextTable.h"
#include "commands/arguments.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/due_list.h"
#include "host/desk/work/send_notification.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

using host::SendOutcome;
using host::SendResult;

enum class Fate { sent, skipped, failed, unmarked, unkept };

/// What a notification's row of the table says.
struct Told {
  Fate fate;
  /// What was done, or why nothing was.
  std::string words;
};

struct ResultWords {
  SendResult result;
  Fate fate;
  /// "{}" stands for the detail.
  const char* words;
  /// Of what was due a moment ago: someone else has settled it, which is no fault.
  const char* meanwhile = nullptr;
};
constexpr std::array<ResultWords, 14> resultTable{{
    {SendResult::sent, Fate::sent, "to {}"},
    {SendResult::foundInOutbox, Fate::sent, "was in the outbox already"},
    {SendResult::markedOnly, Fate::sent, "marked only; nothing goes out"},
    {SendResult::byHand, Fate::skipped, "{}"},
    {SendResult::alreadySent, Fate::failed, "This notification has already been sent.",
     "was sent meanwhile"},
    {SendResult::alreadyCancelled, Fate::failed, "it is cancelled", "was cancelled meanwhile"},
    {SendResult::cancelFinished, Fate::skipped,
     "its cancelling was interrupted; it stays cancelled"},
    {SendResult::cancelFailed, Fate::failed, "its cancelling was interrupted: {}"},
    {SendResult::unknownWhetherSent, Fate::failed,
     "it cannot be known whether it was sent: its marking was interrupted and it is not in the "
     "outbox (settle it with send --mark-only or send --again)"},
    {SendResult::uncertain, Fate::failed, "{} (settle it with send --mark-only or send --again)"},
    {SendResult::noAddress, Fate::failed,
     "There is no email address entered for this notification"},
    {SendResult::failed, Fate::failed, "{}"},
    {SendResult::atWorkElsewhere, Fate::failed, "another desk is at work on it",
     "another desk is at work on it"},
    {SendResult::notThere, Fate::failed, "there is no such notification", "was deleted meanwhile"},
}};

/// In the order of Fate.
struct FateWords {
  const char* name;
  const char* complaint;
};
constexpr std::array<FateWords, 5> fateTable{{
    {"sent", ""},
    {"skipped", "was not sent"},
    {"failed", "was not sent"},
    {"not marked", "could not be marked sent"},
    {"sent", "was sent"},
}};

const FateWords& wordsOf(Fate fate) {
  return fateTable.at(static_cast<std::size_t>(fate));
}

/// Who sends what goes out by a channel, and the command for it; "{}" stands for the number.
struct ByHand {
  notifyType channel;
  const char* reason;
};
constexpr ByHand byHand[] = {
    {nt_Fax, "a fax to print: hvnotify print {} --mark"},
    {nt_Letter, "a letter to print: hvnotify print {} --mark"},
    {nt_Phone, "a phone call: hvnotify call {} --made"},
};

std::string reasonToSkip(Id id, int channel) {
  if (const ByHand* row = host::findChannel(byHand, channel))
    return fmt::format(fmt::runtime(row->reason), id);
  return fmt::format("there is no way to send a notification by {}", host::channelName(channel));
}

Told tell(const SendOutcome& outcome, bool wasDue) {
  const ResultWords& row = *std::ranges::find(resultTable, outcome.result, &ResultWords::result);
  if (wasDue && row.meanwhile) return {Fate::skipped, row.meanwhile};
  const bool isByHand = outcome.result == SendResult::byHand;
  Told told{row.fate, fmt::format(fmt::runtime(row.words),
                                  isByHand ? reasonToSkip(outcome.id, outcome.about->channel)
                                           : outcome.detail)};
  for (const auto& [fault, fate] :
       {std::pair(outcome.keepFault, Fate::unkept), std::pair(outcome.markFault, Fate::unmarked)}) {
    if (!fault.empty()) told = {fate, told.words + "; " + fault};
  }
  return told;
}

const char* fateName(Fate fate, bool dryRun) {
  return dryRun && fate == Fate::sent ? "would be sent" : wordsOf(fate).name;
}

void report(Reply& reply, TextTable& table, const SendOutcome& outcome,
            const Arguments& arguments) {
  const Told told = tell(outcome, arguments.due);
  const char* name = fateName(told.fate, arguments.dryRun);
  const std::string about = aboutOf(outcome.about);
  table.add({std::to_string(outcome.id), name, told.words, about});
  reply.data.push_back(
      {{"notification", outcome.id}, {"result", name}, {"detail", told.words}, {"about", about}});
  const bool isFault = told.fate != Fate::sent && (told.fate != Fate::skipped || !arguments.due);
  if (!isFault) return;
  reply.refuse(
      fmt::format("notification {} {}: {}", outcome.id, wordsOf(told.fate).complaint, told.words));
}

}  // namespace

void describeSend(CLI::App& command, Arguments& arguments) {
  auto* ids = addNotifications(command, arguments);
  auto* due = command.add_flag("--due", arguments.due, "all that is due today")->excludes(ids);
  command.add_flag("--dry-run", arguments.dryRun, "only tell what would go out");
  auto* mark = command.add_flag("--mark-only", arguments.markOnly,
                                "mark as sent what a person has sent; send nothing");
  command
      .add_flag("--again", arguments.again,
                "send also where it cannot be known whether it was sent")
      ->excludes(due)
      ->excludes(mark);
  mark->excludes(due);
}

Reply runSend(host::Desk& desk, const Arguments& arguments) {
  requireNotifications(arguments, "send");
  const auto wanted = arguments.due ? host::notificationsToSend(desk)
                                    : host::ReadableRows<Id>{arguments.notifications, {}};
  const host::SendWish wish{arguments.dryRun, arguments.markOnly, arguments.again};
  Reply reply;
  reply.data = Json::array();
  TextTable table({"NOTIFICATION", "RESULT", "DETAIL", "CLIENT AND TASK"});
  for (const Id id : wanted.rows)
    report(reply, table, host::sendNotification(desk, id, wish), arguments);
  if (!showList(reply, table, wanted.unreadable)) reply.text = "Nothing is due.\n";
  return reply;
}

}  // namespace autonotify::console
