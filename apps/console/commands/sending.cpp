#include "commands/sending.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "commands/arguments.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/work/due_list.h"
#include "host/desk/work/send_notification.h"
#include "host/mail/addresses.h"
#include "outcome_words.h"

namespace autonotify::console {
namespace {

using host::SendOutcome;
using host::SendResult;

enum class Fate { sent, skipped, failed, unmarked, unkept, tested };

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
constexpr std::array<ResultWords, 17> resultTable{{
    {SendResult::sent, Fate::sent, "to {}"},
    {SendResult::foundInOutbox, Fate::sent, "was in the outbox already"},
    {SendResult::markedOnly, Fate::sent, "marked only; nothing goes out"},
    {SendResult::testSent, Fate::tested, "to {}"},
    {SendResult::byHand, Fate::skipped, "{}"},
    {SendResult::alreadySent, Fate::failed, "This notification has already been sent.",
     "was sent meanwhile"},
    {SendResult::alreadyCancelled, Fate::failed, "it is cancelled", "was cancelled meanwhile"},
    {SendResult::cancelFinished, Fate::skipped,
     "its cancelling was interrupted; it stays cancelled"},
    {SendResult::cancelFailed, Fate::failed, "its cancelling was interrupted: {}"},
    {SendResult::unfinished, Fate::failed, "it is still being written", "is still being written"},
    {SendResult::unknownWhetherSent, Fate::failed,
     "it cannot be known whether it was sent: its marking was interrupted and it is not in the "
     "outbox (settle it with send --mark-only or send --again)"},
    {SendResult::uncertain, Fate::failed, "{} (settle it with send --mark-only or send --again)"},
    {SendResult::noAddress, Fate::failed,
     "There is no email address entered for this notification"},
    {SendResult::noText, Fate::failed, "There is no text entered for this notification"},
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
constexpr std::array<FateWords, 6> fateTable{{
    {"sent", ""},
    {"skipped", "was not sent"},
    {"failed", "was not sent"},
    {"not marked", "could not be marked sent"},
    {"sent", "was sent"},
    {"test sent", ""},
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

/// Tells what becomes of each notification: people as it goes, programs at the end.
class SendReport {
 public:
  SendReport(const Arguments& arguments, RowForm form)
      : arguments_(arguments),
        isForPeople_(form == RowForm::table),
        printer_(form,
                 {{"notification", "NOTIFICATION"},
                  {"result", "RESULT"},
                  {"detail", "DETAIL"},
                  {"about", "CLIENT AND TASK"}},
                 1) {
    reply_.data = Json::array();
  }

  void add(const SendOutcome& outcome) {
    const Told told = tell(outcome, arguments_.due);
    const char* name = fateName(told.fate, arguments_.dryRun);
    const std::string about = aboutOf(outcome.about);
    const bool isSkipped = told.fate == Fate::skipped && arguments_.due;
    const bool isFault = *wordsOf(told.fate).complaint && !isSkipped;
    reply_.data.push_back(
        {{"notification", outcome.id}, {"result", name}, {"detail", told.words}, {"about", about}});
    // Standard error tells people what is wrong.
    const Json shown[] = {outcome.id, name, isFault ? Json() : Json(told.words), about};
    print([&] { printer_.add(shown); });
    if (isFault)
      reply_.refuse(fmt::format("notification {} {}: {}", outcome.id, wordsOf(told.fate).complaint,
                                told.words));
  }

  /// `left` were not tried.
  Reply finish(std::size_t left, const host::UnreadableRows& unreadable) {
    print([&] { printer_.end(); });
    if (left > 0)
      reply_.refuse(fmt::format(
          "{} more {} not tried; {}", left, left == 1 ? "was" : "were",
          arguments_.due ? "send --due goes on with them" : "send them when the server is back"));
    for (const host::UnreadableRow& row : unreadable) reply_.refuse(row.description());
    if (reply_.data.empty() && unreadable.empty()) reply_.text = "Nothing is due.\n";
    return std::move(reply_);
  }

 private:
  /// That nobody can read of it keeps nothing from being sent; the program says so at its end.
  template <class Print>
  void print(Print&& printing) try {
    if (isForPeople_) printing();
  } catch (const Refusal&) {
    isForPeople_ = false;
  }

  const Arguments& arguments_;
  bool isForPeople_;
  RowPrinter printer_;
  Reply reply_;
};

std::optional<host::Mailbox> testAddress(const Arguments& arguments) {
  if (arguments.testTo.empty()) return std::nullopt;
  try {
    const auto mailboxes = host::parseRecipients(arguments.testTo);
    if (mailboxes.size() == 1) return mailboxes.front();
  } catch (const host::MailError&) {
  }
  throw Refusal(fmt::format("--test-to: \"{}\" is not one email address", arguments.testTo),
                exitUsage);
}

}  // namespace

void describeSend(CLI::App& command, Arguments& arguments) {
  auto* ids = addNotifications(command, arguments);
  auto* due = command.add_flag("--due", arguments.due, "all that is due today")->excludes(ids);
  command.add_flag("--dry-run", arguments.dryRun, "only tell what would go out");
  addText(command, "--test-to", "ADDRESS",
          "send what would go out to this address instead, as a test, and mark nothing",
          arguments.testTo)
      ->excludes("--dry-run");
  auto* mark = command.add_flag("--mark-only", arguments.markOnly,
                                "mark as sent what a person has sent; send nothing");
  command
      .add_flag("--again", arguments.again,
                "send also where it cannot be known whether it was sent")
      ->excludes(due)
      ->excludes(mark)
      ->excludes("--test-to");
  mark->excludes(due)->excludes("--test-to");
}

Reply listSent(host::Desk& desk, const Arguments& arguments, RowForm form) {
  requireNotifications(arguments, "send");
  const host::SendWish wish{arguments.dryRun, arguments.markOnly, arguments.again,
                            testAddress(arguments)};
  const auto wanted = arguments.due ? host::notificationsToSend(desk)
                                    : host::ReadableRows<Id>{arguments.notifications, {}};
  SendReport report(arguments, form);
  const std::size_t left = host::sendNotifications(
      desk, wanted.rows, wish, [&](const SendOutcome& outcome) { report.add(outcome); });
  return report.finish(left, wanted.unreadable);
}

}  // namespace autonotify::console
