#include "host/mail/OutboxEmailSender.h"

#include <random>
#include <utility>

#include "host/clients/record_rows.h"
#include "host/mail/Outbox.h"
#include "host/mail/gmime_handles.h"
#include "platform/PlatformError.h"

namespace autonotify::host {
namespace {

/// The firm's name and address as its own record has them; empty texts without such a record.
Mailbox firmMailbox(DatabaseReference& database) {
  Mailbox firm;
  firstRow(
      database,
      "SELECT AccountantFirmInfo.CompanyName, AccountantFirmInfo.Email FROM AccountantFirmInfo;",
      [&](const Row& row) {
        firm = {row.text("CompanyName"), row.text("Email")};
      });
  return firm;
}

/// What no other message has.
std::string identityOfItsOwn() {
  std::random_device random;
  std::string identity = "message";
  for (int part = 0; part < 4; ++part) identity += ' ' + std::to_string(random());
  return identity;
}

}  // namespace

OutboxEmailSender::OutboxEmailSender(OutboxSettings settings, Clock& clock)
    : settings_(std::move(settings)), clock_(clock) {}

bool OutboxEmailSender::send() {
  lastError_.clear();
  alreadyDelivered_ = false;
  try {
    MailMessage message = compose();
    identify();
    const std::string name = messageName();
    message.messageId = name + message.from.address.substr(message.from.address.rfind('@'));
    deliver(name, message);
    return true;
  } catch (const MailError& error) {
    lastError_ = error.what();
  } catch (const PlatformError& error) {
    lastError_ = "The firm's database cannot be read: " + error.description();
  }
  return false;
}

void OutboxEmailSender::deliver(const std::string& name, const MailMessage& message) {
  const Outbox outbox(settings_.folder);
  const bool isNew = outbox.put(name, messageText(message));
  alreadyDelivered_ = !isNew && (!settings_.server || outbox.wasSent(name));
  if (!settings_.server || alreadyDelivered_) return;
  if (!isNew && !mayRepeat_)
    throw MailError(
        "It is not known whether the message went out: sending it was interrupted, or "
        "another desk is sending it.");
  try {
    submit(*settings_.server, message);
  } catch (const UncertainMailError&) {
    throw;
  } catch (const MailError&) {
    outbox.withdraw(name);
    throw;
  }
  outbox.moveToSent(name);
}

MailMessage OutboxEmailSender::compose() {
  MailMessage message;
  message.to = parseRecipients(words_.to);
  message.cc = parseRecipients(words_.cc);
  message.bcc = parseRecipients(words_.bcc);
  if (message.to.empty() && message.cc.empty() && message.bcc.empty())
    throw MailError("The message has no recipient.");
  message.from = sender();
  message.subject = words_.subject;
  message.body = words_.body;
  message.date = clock_.now();
  return message;
}

Mailbox OutboxEmailSender::sender() {
  Mailbox from = settings_.from;
  if ((from.name.empty() || from.address.empty()) && hasDatabase()) {
    const Mailbox firm = firmMailbox(*database_);
    if (from.name.empty()) from.name = firm.name;
    if (from.address.empty()) from.address = firm.address;
  }
  const std::vector<Mailbox> mailboxes = parseRecipients(from.address);
  if (mailboxes.empty()) throw MailError("The firm has no email address to send from.");
  return {cleanLine(from.name), mailboxes.front().address};
}

bool OutboxEmailSender::isDelivered() const {
  if (identity_.empty()) return false;
  const Outbox outbox(settings_.folder);
  const std::string name = messageName();
  return settings_.server ? outbox.wasSent(name) : outbox.holds(name);
}

bool OutboxEmailSender::hasDatabase() const {
  return database_ && database_->isDatabaseOpen();
}

/// What is settled once holds for every further attempt.
void OutboxEmailSender::identify() {
  if (!identity_.empty()) return;
  if (settings_.identityOf && hasDatabase())
    if (const auto notification = notificationOf(*database_, words_))
      identity_ = settings_.identityOf(*notification);
  if (identity_.empty()) identity_ = identityOfItsOwn();
}

std::string OutboxEmailSender::messageName() const {
  const std::string named = "identity " + std::to_string(identity_.size()) + ':' + identity_;
  const GText digest(g_compute_checksum_for_string(G_CHECKSUM_SHA256, named.data(),
                                                   static_cast<gssize>(named.size())));
  return std::string(digest.get()).substr(0, 40);
}

}  // namespace autonotify::host
