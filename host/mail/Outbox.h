#pragma once

#include <string>

#include "host/mail/addresses.h"

namespace autonotify::host {

/// A folder into which messages are put whole, for a mail system to take them from.
///
/// A message is a file "NAME.eml". It is written under a hidden name, made durable and given its
/// name in one step that never replaces a file: a crash leaves at most a hidden file behind. A mail
/// system that has taken a message moves it into the folder "sent" below, so that the same message
/// is not put in again.
class Outbox {
 public:
  /// The folder must exist: making it could hide that a disk is not mounted.
  explicit Outbox(std::string folder) : folder_(std::move(folder)) {}

  /// True when the message was put in, False when one of that name is there already or was sent.
  /// Throws MailError when neither is so; nothing is left behind then.
  bool put(const std::string& name, const std::string& content) const;
  /// True when a message of that name is there or was sent. False as well when the folder cannot
  /// be read.
  bool holds(const std::string& name) const;
  /// True when a message of that name was sent: it is in the folder "sent".
  bool wasSent(const std::string& name) const;

  // For a sender that takes its messages from here itself. Both throw MailError.

  /// Moves the message into the folder "sent", which is made when it is not there.
  void moveToSent(const std::string& name) const;
  /// Takes the message out again.
  void withdraw(const std::string& name) const;

 private:
  std::string folder_;
};

}  // namespace autonotify::host
