#include "commands/sending.h"

#include <fmt/format.h>

#include "TextTable.h"
#include "commands/arguments.h"
#include "commands/lists.h"
#include "notifications.h"
#include "platform/rich_text.h"

namespace autonotify::console {
namespace {

enum class Fate { sent, skipped, failed };

struct Outcome {
  Fate fate = Fate::failed;
  /// What was done, or why nothing was.
  std::string words;
};

constexpr const char* fateNames[] = {"sent", "skipped", "failed"};

Outcome failed(std::string words) {
  return {Fate::failed, std::move(words)};
}

Outcome markSent(Session& session, const Notification& row, const std::string& words) {
  const std::string errors =
      session.errorsOf([&] { session.tools().changeNotificationToSent(row.id); });
  if (errors.empty()) return {Fate::sent, words};
  return failed(fmt::format("{}, but could not be marked sent: {}", words, errors));
}

Outcome sendEmail(Session& session, const Notification& row, bool dryRun) {
  if (row.fields[0].empty())
    return failed("There is no email address entered for this notification");
  if (dryRun) return {Fate::sent, fmt::format("would go to {}", row.fields[0])};
  const auto sender = session.newEmailSender();
  sender->setIdentity(session.messageIdentity(row.id));
  sender->put_to(row.fields[0]);
  sender->put_cc(row.fields[1]);
  sender->put_bcc(row.fields[2]);
  sender->put_subject(row.fields[3]);
  sender->put_body(plainTextOf(row.memo));
  if (!sender->send()) return failed(sender->getLastError());
  return markSent(session, row,
                  sender->alreadyDelivered() ? "was in the outbox already"
                                             : fmt::format("to {}", row.fields[0]));
}

Outcome finishCancel(Session& session, const Notification& row, bool dryRun) {
  if (!dryRun) {
    const std::string errors =
        session.errorsOf([&] { session.tools().cancelNotification(row.id); });
    if (!errors.empty()) return failed("its cancelling was interrupted: " + errors);
  }
  return {Fate::skipped, "its cancelling was interrupted; it stays cancelled"};
}

Outcome sendRow(Session& session, const Notification& row, bool dryRun) {
  switch (stateOf(row)) {
    case NotificationState::sent:
      return failed("This notification has already been sent.");
    case NotificationState::cancelled:
      return failed("it is cancelled");
    case NotificationState::interruptedCancel:
      return finishCancel(session, row, dryRun);
    case NotificationState::interruptedSending:
    case NotificationState::pending:
      break;
  }
  if (row.channel == nt_Email) return sendEmail(session, row, dryRun);
  return {Fate::skipped, fmt::format("a {} is sent by a person", channelName(row.channel))};
}

/// One row, come what may: a failure ends this row and no other.
Outcome sendOne(Session& session, Id id, bool dryRun) {
  try {
    const std::optional<Notification> row = findNotification(session, id);
    return row ? sendRow(session, *row, dryRun) : failed("there is no such notification");
  } catch (const PlatformError& error) {
    return failed(error.description());
  }
}

std::string describeRow(Session& session, Id id) {
  try {
    const std::optional<Notification> row = findNotification(session, id);
    if (!row) return {};
    return fmt::format("{}, {}", clientName(session, *row), itemName(session, *row));
  } catch (const PlatformError&) {
    return {};
  }
}

}  // namespace

void describeSend(CLI::App& command, Arguments& arguments) {
  auto* ids = command.add_option("NOTIFICATION", arguments.notifications,
                                 "numbers of notifications (see: hvnotify due)");
  auto* due = command.add_flag("--due", arguments.due, "all that is due today");
  ids->excludes(due);
  command.add_flag("--dry-run", arguments.dryRun, "only tell what would go out");
  command.callback([&arguments] {
    if (!arguments.due && arguments.notifications.empty()) {
      throw CLI::ValidationError("name notifications, or give --due");
    }
  });
}

Reply runSend(Session& session, const Arguments& arguments) {
  const std::vector<Id> ids =
      arguments.due ? notificationsToSend(session) : arguments.notifications;
  Reply reply;
  reply.data = Json::array();
  TextTable table({"NOTIFICATION", "RESULT", "", "CLIENT AND TASK"});
  for (const Id id : ids) {
    const Outcome outcome = sendOne(session, id, arguments.dryRun);
    const bool isFault =
        outcome.fate == Fate::failed || (outcome.fate == Fate::skipped && !arguments.due);
    const std::string about = describeRow(session, id);
    const char* fate = fateNames[static_cast<int>(outcome.fate)];
    table.add({std::to_string(id), fate, outcome.words, about});
    reply.data.push_back(
        {{"notification", id}, {"result", fate}, {"detail", outcome.words}, {"about", about}});
    if (!isFault) continue;
    reply.exitCode = exitRefused;
    reply.complaints.push_back(fmt::format("notification {} was not sent: {}", id, outcome.words));
  }
  reply.text = ids.empty() ? "Nothing is due.\n" : table.toText();
  return reply;
}

}  // namespace autonotify::console
