#include "host/mail/OutboxEmailSender.h"

#include <random>
#include <utility>

#include "host/clients/record_rows.h"
#include "host/mail/gmime_handles.h"
#include "host/mail/html_page.h"
#include "host/words/Words.h"
#include "platform/PlatformError.h"
#include "platform/rich_text.h"

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
  return attempt([&] { deliver(prepare()); });
}

void OutboxEmailSender::sendAll(std::span<OutboxEmailSender* const> senders) {
  if (senders.empty()) return;
  const OutboxSettings& common = senders.front()->settings_;
  if (senders.size() == 1 || common.server) {
    for (OutboxEmailSender* each : senders) each->send();
    return;
  }
  std::vector<OutboxEmailSender*> ready;
  std::vector<Prepared> prepared;
  std::vector<OutboxMessage> messages;
  for (OutboxEmailSender* each : senders) {
    if (!each->attempt([&] { prepared.push_back(each->prepare()); })) continue;
    ready.push_back(each);
    messages.push_back({prepared.back().name, messageText(prepared.back().message)});
  }
  const Outbox outbox(common.folder);
  const std::vector<OutboxPut> puts = outbox.putAll(messages, OutboxPlace::waiting);
  for (std::size_t i = 0; i < ready.size(); ++i)
    ready[i]->attempt([&] {
      if (!puts[i].fault.empty()) throw MailError(puts[i].fault);
      ready[i]->finish(outbox, prepared[i], puts[i].isNew);
    });
}

/// Runs `act`, whose failure becomes that of the message.
template <class Act>
bool OutboxEmailSender::attempt(Act&& act) {
  lastError_.clear();
  keepFault_.clear();
  alreadyDelivered_ = isUncertain_ = isServersFault_ = false;
  try {
    act();
    return true;
  } catch (const MailError& error) {
    isUncertain_ = dynamic_cast<const UncertainMailError*>(&error);
    isServersFault_ = dynamic_cast<const MailServerError*>(&error);
    lastError_ = error.what();
  } catch (const PlatformError& error) {
    lastError_ = Words::tr("The firm's database cannot be read: %1", {error.description()});
  }
  return false;
}

OutboxEmailSender::Prepared OutboxEmailSender::prepare() {
  MailMessage message = compose();
  identify();
  message.page = page();
  std::string name = messageName();
  message.messageId = name + message.from.address.substr(message.from.address.rfind('@'));
  return {std::move(name), std::move(message)};
}

void OutboxEmailSender::deliver(const Prepared& prepared) {
  const Outbox outbox(settings_.folder);
  if (settings_.server) outbox.makeSubfolders();
  finish(outbox, prepared, outbox.put({prepared.name, messageText(prepared.message)}, start()));
}

/// What follows when the message was put, or found.
void OutboxEmailSender::finish(const Outbox& outbox, const Prepared& prepared, bool isNew) {
  if (!isNew) {
    const OutboxPlace found = outbox.find(prepared.name);
    alreadyDelivered_ = isOut(found);
    if (alreadyDelivered_) return;
    if (!mayRepeat_ || found == OutboxPlace::nowhere) throw UncertainMailError(doubtOf(found));
    if (found != start()) outbox.move(prepared.name, found, start());
  }
  if (settings_.server) submitFrom(outbox, prepared, isNew);
}

void OutboxEmailSender::submitFrom(const Outbox& outbox, const Prepared& prepared, bool isNew) {
  try {
    submit(*settings_.server, prepared.message);
  } catch (const UncertainMailError&) {
    throw;
  } catch (const MailError&) {
    // That it is refused this time tells nothing of the time before.
    if (isNew) outbox.withdraw(prepared.name, OutboxPlace::sending);
    throw;
  }
  try {
    outbox.move(prepared.name, OutboxPlace::sending, OutboxPlace::sent);
  } catch (const MailError& error) {
    keepFault_ =
        Words::tr("it stays in \"sending\", from where nothing is sent again: %1", {error.what()});
  }
}

MailMessage OutboxEmailSender::compose() {
  MailMessage message;
  message.to = parseRecipients(words_.to);
  message.cc = parseRecipients(words_.cc);
  message.bcc = parseRecipients(words_.bcc);
  if (message.to.empty() && message.cc.empty() && message.bcc.empty())
    throw MailError(Words::tr("The message has no recipient."));
  if (words_.body.find_first_not_of(" \t\r\n") == std::string::npos)
    throw MailError(Words::tr("The message has no text."));
  message.from = sender();
  message.subject = words_.subject;
  message.body = words_.body;
  message.date = clock_.now();
  if (testTo_) redirect(message);
  return message;
}

void OutboxEmailSender::redirect(MailMessage& message) const {
  for (const std::string* recipients : {&words_.to, &words_.cc, &words_.bcc})
    if (!recipients->empty()) message.testOf += (message.testOf.empty() ? "" : ", ") + *recipients;
  message.to = {*testTo_};
  message.cc.clear();
  message.bcc.clear();
  message.subject.insert(0, "[Test] ");
}

/// Empty for a text without formats.
std::string OutboxEmailSender::page() const {
  return settings_.isPlain || !isRichText(richText_) ? "" : pageOf(readRichText(richText_));
}

Mailbox OutboxEmailSender::sender() {
  Mailbox from = settings_.from;
  if ((from.name.empty() || from.address.empty()) && hasDatabase()) {
    const Mailbox firm = firmMailbox(*database_);
    if (from.name.empty()) from.name = firm.name;
    if (from.address.empty()) from.address = firm.address;
  }
  const std::vector<Mailbox> mailboxes = parseRecipients(from.address);
  if (mailboxes.empty()) throw MailError(Words::tr("The firm has no email address to send from."));
  return {cleanLine(from.name), mailboxes.front().address};
}

OutboxPlace OutboxEmailSender::place() const {
  return identity_.empty() ? OutboxPlace::nowhere : Outbox(settings_.folder).find(messageName());
}

bool OutboxEmailSender::isOut(OutboxPlace place) const {
  return settings_.identitiesAreOurs &&
         (place == OutboxPlace::sent || (place == OutboxPlace::waiting && !settings_.server));
}

std::string OutboxEmailSender::doubtOf(OutboxPlace place) const {
  if (!settings_.identitiesAreOurs)
    return Words::tr(
        "It is not known whether the message went out: one of its name is in the outbox, and the "
        "database has no identity that tells its messages from others'.");
  if (place == OutboxPlace::waiting)
    return Words::tr(
        "It is not known whether the message went out: it is in the outbox for another mail system "
        "to take.");
  return Words::tr(
      "It is not known whether the message went out: sending it was interrupted, or another desk "
      "is sending it.");
}

bool OutboxEmailSender::isDelivered() const {
  return isOut(place());
}

std::string OutboxEmailSender::doubt() const {
  const OutboxPlace found = place();
  return found == OutboxPlace::nowhere || isOut(found) ? "" : doubtOf(found);
}

void OutboxEmailSender::putAside() const {
  const Outbox outbox(settings_.folder);
  const std::string name = messageName();
  if (settings_.identitiesAreOurs && outbox.find(name) == OutboxPlace::sending)
    outbox.move(name, OutboxPlace::sending, OutboxPlace::sent);
}

bool OutboxEmailSender::hasDatabase() const {
  return database_ && database_->isDatabaseOpen();
}

/// What is settled once holds for every further attempt.
void OutboxEmailSender::identify() {
  if (identity_.empty() && settings_.identityOf && hasDatabase())
    if (auto notification = notificationOf(*database_, words_)) {
      identity_ = settings_.identityOf(notification->id);
      richText_ = std::move(notification->memo);
    }
  const bool isOthers = mayRepeat_ && !settings_.identitiesAreOurs && !doubt().empty();
  if (identity_.empty() || isOthers || testTo_) identity_ = identityOfItsOwn();
}

std::string OutboxEmailSender::messageName() const {
  const std::string named = "identity " + std::to_string(identity_.size()) + ':' + identity_;
  const GText digest(g_compute_checksum_for_string(G_CHECKSUM_SHA256, named.data(),
                                                   static_cast<gssize>(named.size())));
  return std::string(digest.get()).substr(0, 40);
}

}  // namespace autonotify::host
