#include "host/desk/work/send_notification.h"

#include <memory>

#include "host/mail/addresses.h"
#include "platform/rich_text.h"

namespace autonotify::host {
namespace {

/// One notification on its way.
class Sending {
 public:
  Sending(Desk& desk, const Notification& row, const SendWish& wish)
      : desk_(desk), row_(row), wish_(wish) {}

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
    if (wish_.dryRun) return rehearse();
    desk_.makeOutbox();
    const auto sender = newSender();
    sender->put_to(recipients());
    sender->put_cc(row_.fields[Notification::emailCc]);
    sender->put_bcc(row_.fields[Notification::emailBcc]);
    sender->put_subject(row_.fields[Notification::emailSubject]);
    sender->put_body(plainTextOf(row_.memo));
    sender->setRichText(row_.memo);
    if (wish_.testTo) sender->makeTest(*wish_.testTo);
    if (!sender->send())
      return {.result = sender->isUncertain() ? SendResult::uncertain : SendResult::failed,
              .detail = sender->getLastError(),
              .isServersFault = sender->isServersFault()};
    if (wish_.testTo) return {SendResult::testSent, wish_.testTo->address};
    if (sender->alreadyDelivered()) return marked({SendResult::foundInOutbox});
    return marked({SendResult::sent, recipients(), sender->keepFault()});
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
    if (!wish_.dryRun) {
      outcome.markFault = desk_.errorsOf([&] { desk_.tools().changeNotificationToSent(row_.id); });
    }
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
};

}  // namespace

SendOutcome sendNotification(Desk& desk, Id id, const SendWish& wish) {
  const auto send = [&](const Notification& row) { return Sending(desk, row, wish).run(); };
  return wish.dryRun || wish.testTo ? withNotification<SendOutcome>(desk, id, send)
                                    : withClaimedNotification<SendOutcome>(desk, id, send);
}

}  // namespace autonotify::host
