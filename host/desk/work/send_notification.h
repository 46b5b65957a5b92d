#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/desk/work/one_notification.h"
#include "host/mail/addresses.h"

namespace autonotify::host {

/// How a notification is to be sent.
struct SendWish {
  /// Changes nothing: tells what would happen.
  bool dryRun = false;
  /// Marks as sent what a person has sent; nothing goes out.
  bool markOnly = false;
  /// Sends also where it cannot be known whether it was sent.
  bool again = false;
  /// What would go out goes to this address instead, as a test: nothing is marked.
  std::optional<Mailbox> testTo = std::nullopt;
};

enum class SendResult {
  // Sent, and marked so unless markFault says otherwise.
  sent,
  foundInOutbox,
  markedOnly,

  /// A test of it went out.
  testSent,
  /// A person sends what goes out by this channel.
  byHand,
  alreadySent,
  alreadyCancelled,
  /// Its cancelling was interrupted, and is finished now.
  cancelFinished,
  cancelFailed,
  /// Whoever writes it is not done.
  unfinished,
  /// Its marking was interrupted, and the outbox does not know it as sent.
  unknownWhetherSent,
  /// Sending it was interrupted, or the mail server did: see OutboxEmailSender::isUncertain.
  uncertain,
  noAddress,
  /// There is nothing in it to read.
  noText,
  /// The mail or the database refused it.
  failed,
  atWorkElsewhere,
  notThere,
};

/// What became of one notification.
struct SendOutcome {
  SendResult result = SendResult::failed;
  /// Of `sent` the recipients; of a failure its reason.
  std::string detail = {};
  /// Why the message of what was sent could not be put aside: see OutboxEmailSender::keepFault.
  std::string keepFault = {};
  /// Why a notification that went out could not be marked sent; the next run makes it good.
  std::string markFault = {};
  /// No other email would go out either.
  bool isServersFault = false;
  Id id = noId;
  /// Unset when it is not there.
  std::optional<NotificationSubject> about = std::nullopt;
};

/// Sends the notification's email and marks it sent; failures are outcomes too.
///
/// A message has one name in the outbox for all time. A run that was killed between the outbox and
/// the mark is made good by the next: the message is found there, nothing is sent again, and the
/// row is marked. A row that is half marked although its message is not there was marked by another
/// program, and a message that a mail server may have taken stays apart in the outbox: whether they
/// were sent cannot be known, and a person settles it by markOnly or again.
SendOutcome sendNotification(Desk& desk, Id id, const SendWish& wish);

/// Hears of each notification once it is settled.
using SendListener = std::function<void(const SendOutcome& outcome)>;

/// Each of the ids, which are all different, does as sendNotification would and is told in its
/// turn. Without a mail server several go into the outbox together, and their marks into the
/// database: they are told when both are done. Gives how many were not tried for a fault of the
/// mail server.
std::size_t sendNotifications(Desk& desk, const std::vector<Id>& ids, const SendWish& wish,
                              const SendListener& tell);

}  // namespace autonotify::host
