#include "host/mail/OutboxEmailSender.h"

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

/// The text behind its length, so that no two lists of fields run into one.
std::string counted(const std::string& text) {
  return std::to_string(text.size()) + ':' + text;
}

}  // namespace

OutboxEmailSender::OutboxEmailSender(OutboxSettings settings, Clock& clock)
    : settings_(std::move(settings)), clock_(clock) {}

bool OutboxEmailSender::send() {
  lastError_.clear();
  alreadyDelivered_ = false;
  try {
    MailMessage message = compose();
    const std::string name = messageName(message);
    message.messageId = name + message.from.address.substr(message.from.address.rfind('@'));
    deliver(name, message);
    return true;
  } catch (const MailError& error) {
    lastError_ = error.what();
  } catch (const PlatformError& error) {
    lastError_ = "The firm's email address cannot be read: " + error.description();
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
  message.to = parseRecipients(to_);
  message.cc = parseRecipients(cc_);
  message.bcc = parseRecipients(bcc_);
  if (message.to.empty() && message.cc.empty() && message.bcc.empty())
    throw MailError("The message has no recipient.");
  message.from = sender();
  message.subject = subject_;
  message.body = body_;
  message.date = clock_.now();
  return message;
}

Mailbox OutboxEmailSender::sender() {
  Mailbox from = settings_.from;
  if ((from.name.empty() || from.address.empty()) && database_ && database_->isDatabaseOpen()) {
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
  const std::string name = identityName();
  return settings_.server ? outbox.wasSent(name) : outbox.holds(name);
}

std::string OutboxEmailSender::messageName(const MailMessage& message) const {
  if (!identity_.empty()) return identityName();
  std::string content = "content " + std::to_string(message.date.days());
  for (const std::string* field : {&message.from.address, &to_, &cc_, &bcc_, &subject_, &body_})
    content += ' ' + counted(*field);
  return nameFor(content);
}

std::string OutboxEmailSender::identityName() const {
  return nameFor("identity " + counted(identity_));
}

std::string OutboxEmailSender::nameFor(const std::string& identity) {
  const GText digest(g_compute_checksum_for_string(G_CHECKSUM_SHA256, identity.data(),
                                                   static_cast<gssize>(identity.size())));
  return std::string(digest.get()).substr(0, 40);
}

}  // namespace autonotify::host
