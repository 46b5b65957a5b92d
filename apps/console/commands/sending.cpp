#include "commands/sending.h"

#include <fmt/format.h>

#include <array>
#include <memory>

#include "TextTable.h"
#include "commands/arguments.h"
#include "commands/lists.h"
#include "host/mail/addresses.h"
#include "notifications.h"
#include "platform/rich_text.h"

namespace autonotify::console {
namespace {

enum class Fate { sent, skipped, failed, unmarked };

struct Outcome {
  Fate fate = Fate::failed;
  /// What was done, or why nothing was.
  std::string words;
};

/// In the order of Fate.
struct FateWords {
  const char* name;
  const char* complaint;
};
constexpr std::array<FateWords, 4> fateTable{{
    {"sent", ""},
    {"skipped", "was not sent"},
    {"failed", "was not sent"},
    {"not marked", "could not be marked sent"},
}};

const FateWords& wordsOf(Fate fate) {
  return fateTable.at(static_cast<std::size_t>(fate));
}

Outcome failed(std::string words) {
  return {Fate::failed, std::move(words)};
}

/// Why a channel is not sent by this program.
struct ByHand {
  notifyType channel;
  const char* reason;
};
constexpr ByHand byHand[] = {
    {nt_Fax, "a fax goes out by hand from its text"},
    {nt_Letter, "a letter goes out by hand from its text"},
    {nt_Phone, "a telephone call is made by a person"},
};

std::string reasonToSkip(int channel) {
  if (const ByHand* row = findChannel(byHand, channel)) return row->reason;
  return fmt::format("there is no way to send a notification by {}", channelName(channel));
}

/// One notification on its way.
class Sending {
 public:
  Sending(Session& session, const Notification& row, const Arguments& arguments)
      : session_(session), row_(row), arguments_(arguments) {}

  Outcome run() {
    switch (stateOf(row_)) {
      case NotificationState::sent:
        return done("was sent meanwhile", "This notification has already been sent.");
      case NotificationState::cancelled:
        return done("was cancelled meanwhile", "it is cancelled");
      case NotificationState::interruptedCancel:
        return finishCancel();
      case NotificationState::interruptedSending:
        return finishSending();
      case NotificationState::pending:
        break;
    }
    return sendNow();
  }

 private:
  /// A row that was due a moment ago was settled by someone else; one that was named is refused.
  Outcome done(const char* meanwhile, const char* refusal) const {
    return arguments_.due ? Outcome{Fate::skipped, meanwhile} : failed(refusal);
  }

  Outcome sendNow() {
    if (arguments_.markOnly) return markSent("marked only; nothing goes out");
    if (row_.channel != nt_Email) return {Fate::skipped, reasonToSkip(row_.channel)};
    return sendEmail();
  }

  Outcome sendEmail() {
    if (row_.fields[Notification::emailTo].empty())
      return failed("There is no email address entered for this notification");
    if (arguments_.dryRun) return rehearse();
    session_.makeOutbox();
    const auto sender = newSender();
    sender->put_to(row_.fields[Notification::emailTo]);
    sender->put_cc(row_.fields[Notification::emailCc]);
    sender->put_bcc(row_.fields[Notification::emailBcc]);
    sender->put_subject(row_.fields[Notification::emailSubject]);
    sender->put_body(plainTextOf(row_.memo));
    if (!sender->send()) return failed(sender->getLastError());
    return markSent(sender->alreadyDelivered() ? inOutbox
                                               : "to " + row_.fields[Notification::emailTo]);
  }

  Outcome rehearse() {
    if (newSender()->isDelivered()) return {Fate::sent, inOutbox};
    try {
      for (const int field : {Notification::emailTo, Notification::emailCc, Notification::emailBcc})
        host::parseRecipients(row_.fields[field]);
    } catch (const host::MailError& error) {
      return failed(error.what());
    }
    return {Fate::sent, "to " + row_.fields[Notification::emailTo]};
  }

  Outcome finishSending() {
    if (arguments_.markOnly) return markSent("marked only; nothing goes out");
    if (arguments_.again) return sendNow();
    if (row_.channel == nt_Email && newSender()->isDelivered()) return markSent(inOutbox);
    return failed(
        "it cannot be known whether it was sent: its marking was interrupted and it is not in the "
        "outbox (settle it with send --mark-only or send --again)");
  }

  Outcome finishCancel() {
    if (!arguments_.dryRun) {
      const std::string errors =
          session_.errorsOf([&] { session_.tools().cancelNotification(row_.id); });
      if (!errors.empty()) return failed("its cancelling was interrupted: " + errors);
    }
    return {Fate::skipped, "its cancelling was interrupted; it stays cancelled"};
  }

  Outcome markSent(const std::string& words) {
    if (arguments_.dryRun) return {Fate::sent, words};
    const std::string errors =
        session_.errorsOf([&] { session_.tools().changeNotificationToSent(row_.id); });
    if (errors.empty()) return {Fate::sent, words};
    return {Fate::unmarked, fmt::format("{}; {}", words, errors)};
  }

  std::unique_ptr<host::OutboxEmailSender> newSender() {
    auto sender = session_.newEmailSender();
    sender->setIdentity(session_.messageIdentity(row_.id));
    if (arguments_.again) sender->allowRepeat();
    return sender;
  }

  static constexpr const char* inOutbox = "was in the outbox already";

  Session& session_;
  const Notification& row_;
  const Arguments& arguments_;
};

Outcome beingSent(const Arguments& arguments) {
  const char* words = "another desk is at work on it";
  return arguments.due ? Outcome{Fate::skipped, words} : failed(words);
}

/// One row, come what may: a failure ends this row and no other. `about` tells whom it concerns.
Outcome sendOne(Session& session, Id id, const Arguments& arguments, std::string& about) {
  try {
    std::unique_ptr<host::Claim> claim;
    std::optional<Notification> row = findNotification(session, id);
    if (row) about = fmt::format("{}, {}", clientName(session, *row), itemName(session, *row));
    if (row && !arguments.dryRun) {
      claim = host::claimNotification(session, *row);
      if (!claim) return beingSent(arguments);
      row = findNotification(session, id);
    }
    if (!row && arguments.due) return {Fate::skipped, "was deleted meanwhile"};
    if (!row) return failed("there is no such notification");
    return Sending(session, *row, arguments).run();
  } catch (const PlatformError& error) {
    return failed(firstLine(error.description()));
  }
}

const char* fateName(Fate fate, bool dryRun) {
  if (dryRun && fate == Fate::sent) return "would be sent";
  return wordsOf(fate).name;
}

}  // namespace

void describeSend(CLI::App& command, Arguments& arguments) {
  auto* ids = command
                  .add_option_function<std::vector<std::string>>(
                      "NOTIFICATION",
                      [&arguments](const std::vector<std::string>& texts) {
                        for (const std::string& text : texts) {
                          addOnce(arguments.notifications, readNumber<Id>("NOTIFICATION", text));
                        }
                      },
                      "numbers of notifications (see: hvnotify due)")
                  ->type_name("NUMBER");
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

Reply runSend(Session& session, const Arguments& arguments) {
  if (!arguments.due && arguments.notifications.empty()) {
    throw Refusal("name notifications, or give --due (see: hvnotify send --help)", exitUsage);
  }
  const std::vector<Id> ids =
      arguments.due ? notificationsToSend(session) : arguments.notifications;
  Reply reply;
  reply.data = Json::array();
  TextTable table({"NOTIFICATION", "RESULT", "DETAIL", "CLIENT AND TASK"});
  for (const Id id : ids) {
    std::string about;
    const Outcome outcome = sendOne(session, id, arguments, about);
    const char* fate = fateName(outcome.fate, arguments.dryRun);
    table.add({std::to_string(id), fate, outcome.words, about});
    reply.data.push_back(
        {{"notification", id}, {"result", fate}, {"detail", outcome.words}, {"about", about}});
    const bool isFault =
        outcome.fate != Fate::sent && (outcome.fate != Fate::skipped || !arguments.due);
    if (!isFault) continue;
    reply.exitCode = exitRefused;
    reply.complaints.push_back(
        fmt::format("notification {} {}: {}", id, wordsOf(outcome.fate).complaint, outcome.words));
  }
  reply.text = ids.empty() ? "Nothing is due.\n" : table.toText();
  return reply;
}

}  // namespace autonotify::console
