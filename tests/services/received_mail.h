#pragma once

#include <string>
#include <vector>

namespace autonotify::test {

/// A message as a mail program reads it.
struct ReceivedMail {
  /// Each "name <address>", or the address alone.
  std::vector<std::string> from;
  std::vector<std::string> to;
  std::vector<std::string> cc;
  std::vector<std::string> bcc;
  std::string subject;
  std::string messageId;
  /// "2026-04-30 14:05:00", the writer's local time.
  std::string date;
  std::string contentType;
  /// Line ends as line feeds.
  std::string body;
  /// The names of all headers, in order.
  std::vector<std::string> headers;
};

/// Fails the test when the text is no message.
ReceivedMail readMail(const std::string& text);

}  // namespace autonotify::test
