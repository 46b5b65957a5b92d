#include "host/desk/work/send_notification.h"

#include <memory>
#include <utility>

#include "host/mail/addresses.h"
#include "platform/rich_text.h"

namespace autonotify::host {
namespace {

/// So many go together where nothing else bounds them: more would save little, and be told late.
constexpr std::size_t largestBatch = 64;

/// What remains to be done for a notification, and what became of it so far.
struct Sending {
  SendOutcome outcome = {};
  std::unique_ptr<Claim> claim = nullptr;
  /// Of a message that is to be sent.
  std::unique_ptr<OutboxEmailSender> sender = nullptr;
  bool isToBeMarked = false;
};

/// All that comes before the message and the mark.
class Beginning {
 public:
  Beginning(Desk& desk, const Notification& row, const SendWish& wish, Sending& sending)
      : desk_(desk), row_(row), wish_(wish), sending_(sending) {}

  SendOutcome run() {
    try {
      return runFrom(stateOf(row_));
    } catch (const MailError& error) {
      return {SendResult::failed, error.what()};
    }
  }

 private:
  SendOutcome runFrom(NotificationState state) {
    switch (state) {
      case NotificationState::sent:
        return {SendResult::alreadySent};
      case NotificationState::cancelled:
        return {SendResult::alreadyCancelled};
      case NotificationState::interruptedCancel:
        return finishCancel();
      case NotificationState::interruptedSending:
        return finishSending();
      case NotificationState::unfinished:
        return {SendResult::unfinished};
      case NotificationState::pending:
        break;
    }
    return sendNow();
  }

  SendOutcome sendNow() {
    if (wish_.markOnly) return markOnly();
    if (row_.channel != nt_Email) return {SendResult::byHand};
    return sendEmail();
  }

  SendOutcome markOnly() {
    SendOutcome outcome{SendResult::markedOnly};
    try {
      if (row_.channel == nt_Email && !wish_.dryRun) newSender()->putAside();
    } catch (const MailError& error) {
      outcome.keepFault = error.what();
    }
    return marked(std::move(outcome));
  }

  SendOutcome sendEmail() {
    if (recipients().empty()) return {SendResult::noAddress};
    if (isWordless(row_)) return {SendResult::noText};
    if (wish_.dryRun) return rehearse();
    desk_.makeOutbox();
    auto sender = newSender();
    sender->put_to(recipients());
    sender->put_cc(row_.fields[Notification::emailCc]);
    sender->put_bcc(row_.fields[Notification::emailBcc]);
    sender->put_subject(row_.fields[Notification::emailSubject]);
    sender->put_body(plainTextOf(row_.memo));
    sender->setRichText(row_.memo);
    if (wish_.testTo) sender->makeTest(*wish_.testTo);
    sending_.sender = std::move(sender);
    return {SendResult::sent, recipients()};
  }

  SendOutcome rehearse() {
    if (auto outcome = outcomeBefore()) return *std::move(outcome);
    for (const int field : {Notification::emailTo, Notification::emailCc, Notification::emailBcc})
      parseRecipients(row_.fields[field]);
    return {SendResult::sent, recipients()};
  }

  SendOutcome finishSending() {
    if (wish_.markOnly || wish_.again) return sendNow();
    if (row_.channel == nt_Email)
      if (auto outcome = outcomeBefore()) return *std::move(outcome);
    return {SendResult::unknownWhetherSent};
  }

  /// What the outbox knows of an earlier run, if anything.
  std::optional<SendOutcome> outcomeBefore() {
    const auto sender = newSender();
    if (sender->isDelivered()) return marked({SendResult::foundInOutbox});
    std::string doubt = sender->doubt();
    if (doubt.empty() || wish_.again) return std::nullopt;
    return SendOutcome{SendResult::uncertain, std::move(doubt)};
  }

  SendOutcome finishCancel() {
    if (wish_.dryRun) return {SendResult::cancelFinished};
    std::string errors = desk_.errorsOf([&] { desk_.tools().cancelNotification(row_.id); });
    if (!errors.empty()) return {SendResult::cancelFailed, std::move(errors)};
    return {SendResult::cancelFinished};
  }

  SendOutcome marked(SendOutcome outcome) {
    sending_.isToBeMarked = !wish_.dryRun;
    return outcome;
  }

  const std::string& recipients() const { return row_.fields[Notification::emailTo]; }

  std::unique_ptr<OutboxEmailSender> newSender() {
    auto sender = desk_.newEmailSender();
    sender->setIdentity(desk_.messageIdentity(row_.id));
    if (wish_.again) sender->allowRepeat();
    return sender;
  }

  Desk& desk_;
  const Notification& row_;
  const SendWish& wish_;
  Sending& sending_;
};

/// Notifications that are sent, marked and told together.
class SendBatch {
 public:
  SendBatch(Desk& desk, const SendWish& wish, const SendListener& tell)
      : desk_(desk), wish_(wish), tell_(tell) {}

  void add(Id id) {
    Sending next;
    next.outcome = withNotification<SendOutcome>(
        desk_, id, [&](const Notification& row) { return begin(row, next); });
    sendings_.push_back(std::move(next));
    const bool isFull = desk_.hasMailServer() || sendings_.size() >= largestBatch;
    if (isFull) settle();
  }

  void settle() {
    send();
    mark();
    std::vector<SendOutcome> outcomes;
    for (Sending& each : sendings_) outcomes.push_back(std::move(each.outcome));
    sendings_.clear();  // with their claims: whoever is told may take long
    for (const SendOutcome& outcome : outcomes) {
      isServersFault_ |= outcome.isServersFault;
      tell_(outcome);
    }
  }

  /// Whether no other email would go out either.
  bool isServersFault() const { return isServersFault_; }

 private:
  SendOutcome begin(const Notification& known, Sending& into) {
    if (wish_.dryRun || wish_.testTo) return Beginning(desk_, known, wish_, into).run();
    into.claim = claim(known);
    if (!into.claim) return {SendResult::atWorkElsewhere};
    const auto row = findNotification(desk_, known.id);
    if (!row) return {SendResult::notThere};
    return Beginning(desk_, *row, wish_, into).run();
  }

  std::unique_ptr<Claim> claim(const Notification& known) {
    if (auto free = tryClaimNotification(desk_, known)) return free;
    // Nothing is held while it waits.
    settle();
    auto awaited = claimNotification(desk_, known);
    return awaited ? *std::move(awaited) : nullptr;
  }

  void send() {
    std::vector<OutboxEmailSender*> senders;
    for (const Sending& each : sendings_)
      if (each.sender) senders.push_back(each.sender.get());
    OutboxEmailSender::sendAll(senders);
    for (Sending& each : sendings_)
      if (each.sender) noteSent(*each.sender, each);
  }

  void noteSent(OutboxEmailSender& sender, Sending& sending) {
    SendOutcome& outcome = sending.outcome;
    if (const std::string fault = sender.getLastError(); !fault.empty()) {
      outcome.result = sender.isUncertain() ? SendResult::uncertain : SendResult::failed;
      outcome.detail = fault;
      outcome.isServersFault = sender.isServersFault();
    } else if (wish_.testTo) {
      outcome.result = SendResult::testSent;
      outcome.detail = wish_.testTo->address;
    } else {
      if (sender.alreadyDelivered()) outcome.result = SendResult::foundInOutbox;
      outcome.keepFault = sender.keepFault();
      sending.isToBeMarked = true;
    }
  }

  /// All as one write, or each for itself where one of them stands in the way.
  void mark() {
    std::vector<SendOutcome*> out;
    for (Sending& each : sendings_)
      if (each.isToBeMarked) out.push_back(&each.outcome);
    const auto write = [&](const SendOutcome* each) {
      desk_.tools().changeNotificationToSent(each->id);
    };
    if (out.empty() || desk_.writeTogether(out, write)) return;
    for (SendOutcome* each : out) each->markFault = desk_.errorsOf([&] { write(each); });
  }

  Desk& desk_;
  const SendWish& wish_;
  const SendListener& tell_;
  std::vector<Sending> sendings_;
  bool isServersFault_ = false;
};

}  // namespace

std::size_t sendNotifications(Desk& desk, const std::vector<Id>& ids, const SendWish& wish,
                              const SendListener& tell) {
  SendBatch batch(desk, wish, tell);
  std::size_t left = ids.size();
  for (const Id id : ids) {
    batch.add(id);
    --left;
    if (batch.isServersFault()) break;
  }
  batch.settle();
  return left;
}

SendOutcome sendNotification(Desk& desk, Id id, const SendWish& wish) {
  SendOutcome told;
  sendNotifications(desk, {id}, wish, [&](const SendOutcome& outcome) { told = outcome; });
  return told;
}

}  // namespace autonotify::host
