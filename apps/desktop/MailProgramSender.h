#pragma once

#include <QUrl>

#include "contract/EmailSender.h"

namespace autonotify::desktop {

/// Opens the email in the mail program of the person's desktop, which sends it or not: all that is
/// known is that it was opened.
class MailProgramSender : public EmailSender {
 public:
  void put_errorClass(errorClass*) override {}
  void put_MsgboxClass(MsgboxClass*) override {}
  void put_LocaleReference(LocaleReference*) override {}
  void put_DatabaseReference(DatabaseReference*) override {}
  void put_workingFolder(const std::string&) override {}
  void put_to(const std::string& recipients) override { to_ = recipients; }
  void put_cc(const std::string& recipients) override { cc_ = recipients; }
  void put_bcc(const std::string& recipients) override { bcc_ = recipients; }
  void put_subject(const std::string& subject) override { subject_ = subject; }
  void put_body(const std::string& body) override { body_ = body; }
  bool send() override;
  std::string getLastError() override { return lastError_; }

  /// The email as a "mailto:" address. Throws MailError for a recipient that is none.
  QUrl address() const;

 private:
  std::string to_;
  std::string cc_;
  std::string bcc_;
  std::string subject_;
  std::string body_;
  std::string lastError_;
};

}  // namespace autonotify::desktop
