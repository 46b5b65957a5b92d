#pragma once

#include <string>

#include "contract/EmailSender.h"
#include "contract/procedure.h"

namespace autonotify {

/// One email as it goes to the user's email program: plain texts.
struct EmailMessage {
  std::string to;
  std::string cc;
  std::string bcc;
  std::string subject;
  std::string body;
};

/// Puts the message into the user's email program through a new EmailSender. True when it was
/// handed over; otherwise the program's own words about the failure are shown.
bool sendEmail(Step& step, const EmailMessage& message);
/// The same through an EmailSender that was made before and has sent nothing yet.
bool sendEmail(Step& step, EmailSender& sender, const EmailMessage& message);

}  // namespace autonotify
