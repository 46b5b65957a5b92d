#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "contract/EmailSender.h"
#include "host/mail/Outbox.h"
#include "host/mail/mail_message.h"
#include "host/mail/notification_of_email.h"
#include "host/mail/smtp.h"
#include "platform/Clock.h"

namespace autonotify::host {

struct OutboxSettings {
  /// Must exist: see Outbox.
  std::string folder;
  /// Who writes. Where empty, the name and the address of the firm's own record.
  Mailbox from;
  /// Unset: some mail system takes the messages from the folder.
  std::optional<SmtpServer> server = std::nullopt;
  /// The identity of a notification's message. Unset: no message is looked for among the rows.
  std::function<std::string(Id notification)> identityOf = nullptr;
  /// False when others may give their messages the same identities.
  bool identitiesAreOurs = true;
  /// Messages are their plain text alone.
  bool isPlain = false;
};

/// Sends a message by putting it, as an RFC 5322 file, into an outbox folder, or, where a server is
/// set, by handing it to the server, with the file in the folder "sending" until the server has
/// taken it and in "sent" from then on. A message that the server refuses leaves the outbox again.
/// One of which it cannot be known whether it went out stays where it is, whether or not a server
/// is set the next time, and is not sent again until allowRepeat() or until a person has taken it
/// away.
///
/// A message has an identity, from which its Message-ID and its file name come, so that sending the
/// same notification again, after a crash or by a second click, cannot make a second message: the
/// one that is there already stays as it is, even if the text was edited in between, and send()
/// reports success. The identity is the one that the host sets, or else that of the notification
/// that is being sent in the same words. A message of neither is one of its own: the same words may
/// go out in many.
///
/// A message whose rich text is known has a page of HTML beside its plain text.
class OutboxEmailSender : public EmailSender {
 public:
  /// `clock` must outlive this object.
  OutboxEmailSender(OutboxSettings settings, Clock& clock);

  void put_errorClass(errorClass*) override {}
  void put_MsgboxClass(MsgboxClass*) override {}
  void put_LocaleReference(LocaleReference*) override {}
  void put_DatabaseReference(DatabaseReference* value) override { database_ = value; }
  void put_workingFolder(const std::string&) override {}
  void put_to(const std::string& recipients) override { words_.to = recipients; }
  void put_cc(const std::string& recipients) override { words_.cc = recipients; }
  void put_bcc(const std::string& recipients) override { words_.bcc = recipients; }
  void put_subject(const std::string& subject) override { words_.subject = subject; }
  void put_body(const std::string& body) override { words_.body = body; }
  bool send() override;
  /// Each does as its send() would. Without a mail server, messages that go into one folder go in
  /// together, which takes much less time.
  static void sendAll(std::span<OutboxEmailSender* const> senders);
  std::string getLastError() override { return lastError_; }

  /// What the body was made from. Where it is not set, the notification of the same words has it.
  void setRichText(std::string text) { richText_ = std::move(text); }
  /// Makes a test of it: a message of its own that says so, and goes to this address in place of
  /// its recipients.
  void makeTest(Mailbox to) { testTo_ = std::move(to); }
  /// What tells this message from every other for good, such as the database's own id with the
  /// notification's. Empty for none.
  void setIdentity(std::string identity) { identity_ = std::move(identity); }
  /// Sends also a message of which it cannot be known whether it went out.
  void allowRepeat() { mayRepeat_ = true; }

  // Of the message of the identity. These send nothing and throw MailError.

  /// True when it is out of the program's hands: sent or, without a server, in the outbox.
  bool isDelivered() const;
  /// Why it cannot be known whether it went out; empty when that is known.
  std::string doubt() const;
  /// Keeps it for sent where there was such a doubt.
  void putAside() const;

  /// True when the last send found the message in place, or sent.
  bool alreadyDelivered() const { return alreadyDelivered_; }
  /// True when the last send failed and it cannot be known whether the message went out.
  bool isUncertain() const { return isUncertain_; }
  /// True when the last send failed as that of any other message would.
  bool isServersFault() const { return isServersFault_; }
  /// Why the message that the last send sent stays in "sending", empty when it does not. It is not
  /// sent again from there.
  const std::string& keepFault() const { return keepFault_; }

 private:
  struct Prepared {
    std::string name;
    MailMessage message;
  };

  template <class Act>
  bool attempt(Act&& act);
  Prepared prepare();
  void deliver(const Prepared& prepared);
  void finish(const Outbox& outbox, const Prepared& prepared, bool isNew);
  void submitFrom(const Outbox& outbox, const Prepared& prepared, bool isNew);
  OutboxPlace start() const {
    return settings_.server ? OutboxPlace::sending : OutboxPlace::waiting;
  }
  OutboxPlace place() const;
  bool isOut(OutboxPlace place) const;
  std::string doubtOf(OutboxPlace place) const;
  MailMessage compose();
  void redirect(MailMessage& message) const;
  std::string page() const;
  Mailbox sender();
  bool hasDatabase() const;
  void identify();
  std::string messageName() const;

  OutboxSettings settings_;
  Clock& clock_;
  DatabaseReference* database_ = nullptr;
  EmailWords words_;
  std::string identity_;
  std::string richText_;
  std::optional<Mailbox> testTo_;
  std::string lastError_;
  std::string keepFault_;
  bool alreadyDelivered_ = false;
  bool isUncertain_ = false;
  bool isServersFault_ = false;
  bool mayRepeat_ = false;
};

}  // namespace autonotify::host
