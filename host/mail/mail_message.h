#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/mail/addresses.h"
#include "platform/DateTime.h"

namespace autonotify::host {

struct MailMessage {
  Mailbox from;
  std::vector<Mailbox> to;
  std::vector<Mailbox> cc;
  std::vector<Mailbox> bcc;
  std::string subject;
  std::string body;
  /// The same as a page of HTML, for programs that show one; empty for none.
  std::string page;
  /// Of a test: to whom the message would go.
  std::string testOf;
  /// Local time of the machine.
  DateTime date;
  /// Without the angle brackets.
  std::string messageId;
};

/// The text as UTF-8 that a message may hold: ill-formed bytes become U+FFFD, line ends line feeds,
/// control characters other than line feed and tab go.
std::string cleanText(std::string_view text);

/// The same on one line: line ends and tabs become blanks.
std::string cleanLine(std::string_view text);

/// The message as RFC 5322 has it, with CRLF line ends, in ASCII. The Bcc header is kept: whoever
/// submits the message takes its recipients from there and leaves the header out. The body is
/// encoded as it needs to be, so that no line is longer than mail servers take, and ends with a
/// line end unless it is empty.
std::string messageText(const MailMessage& message);

}  // namespace autonotify::host
