#pragma once

#include <string>
#include <vector>

#include "host/mail/addresses.h"

namespace autonotify::host {

/// Where a message is, and so whose it is. A message only moves down this list.
enum class OutboxPlace {
  nowhere,
  /// In the folder itself, as "NAME.eml": a mail system's, which moves it to "sent" below.
  waiting,
  /// In the folder "sending" below: a program hands it to a mail server. Where none does any more,
  /// one was ended meanwhile, and it cannot be known whether the server took the message.
  sending,
  /// In the folder "sent" below.
  sent,
};

struct OutboxMessage {
  std::string name;
  std::string content;
};

/// What came of a message that was put.
struct OutboxPut {
  /// False when one of that name is there already, wherever it is.
  bool isNew = false;
  /// Why it could not be put; empty otherwise. Nothing of it is left behind then.
  std::string fault = {};
};

/// A folder that holds each message once, as a whole, until it is sent and after that, so that the
/// same message is not sent again.
///
/// A message is written under a hidden name, made durable and given its name in one step that never
/// replaces a file: a crash leaves at most a hidden file behind.
class Outbox {
 public:
  /// The folder must exist: making it could hide that a disk is not mounted.
  explicit Outbox(std::string folder) : folder_(std::move(folder)) {}

  // All throw MailError, which names the folder or file that stands in the way.

  /// Nowhere when there is no such folder.
  OutboxPlace find(const std::string& name) const;
  /// For whoever sends from here, first of all: so nothing is sent that could not be put aside.
  void makeSubfolders() const;
  /// False when one of that name is there already, wherever it is. Nothing is left behind when this
  /// throws.
  bool put(const OutboxMessage& message, OutboxPlace place) const;
  /// The same for each of several, in their order, but throws nothing. They are made to last
  /// together, which costs hardly more than one.
  std::vector<OutboxPut> putAll(const std::vector<OutboxMessage>& messages,
                                OutboxPlace place) const;
  void move(const std::string& name, OutboxPlace from, OutboxPlace to) const;
  /// Takes a message out again that surely was not sent.
  void withdraw(const std::string& name, OutboxPlace place) const;

 private:
  std::string folder_;
};

}  // namespace autonotify::host
