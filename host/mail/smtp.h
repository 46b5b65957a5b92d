#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "host/mail/mail_message.h"

namespace autonotify::host {

enum class SmtpSecurity {
  none,      ///< nothing is encrypted: for a server on this machine
  startTls,  ///< the connection is encrypted before anything else is said
  tls,       ///< encrypted from the first byte
};

/// A server that takes messages for delivery.
struct SmtpServer {
  std::string host;
  /// 0: 587, or 465 for SmtpSecurity::tls, or 25 for SmtpSecurity::none.
  int port = 0;
  SmtpSecurity security = SmtpSecurity::startTls;
  /// Empty: without a login.
  std::string user;
  std::string password;
  /// A file of certificates to trust instead of the system's.
  std::string certificates;
  /// Up to where the message can be told: with the greetings, the encryption and the login.
  std::chrono::seconds connectTimeout{20};
  /// A server that says nothing, or takes nothing of the message, for so long is given up,
  /// a few seconds later at most.
  std::chrono::seconds silenceTimeout{60};
  /// Called again and again, at least about once a second, until the message is submitted. May be
  /// empty; must not throw.
  std::function<void()> whileWaiting = nullptr;
};

/// Reads "smtp://host:port" (STARTTLS demanded), "smtps://host:port" (TLS) or
/// "smtp-plain://host:port" (nothing encrypted), with "user@" before the host where there is a
/// login. A password is never part of it. Throws MailError.
SmtpServer parseSmtpServer(const std::string& url);

/// The same with the password that is the first line of a file, and certificates to trust from the
/// file that SSL_CERT_FILE names, if it does. An empty name: without a password. `timeout` is for
/// silence, and for connecting where that is less. Throws MailError.
SmtpServer readSmtpServer(const std::string& url, const std::string& passwordFile,
                          std::optional<std::chrono::seconds> timeout = std::nullopt);

/// What a person must hear of a file that holds a password: that other users of the machine can
/// read or change it. Empty when they cannot, and for what is no plain file.
std::string passwordFileWarning(const std::string& path);

/// It cannot be known whether the message went out, such as when the connection broke after the
/// whole of it was told: the server may have taken it.
class UncertainMailError : public MailError {
 public:
  using MailError::MailError;
};

/// The server takes no message at all: it cannot be reached or trusted, or does not let the user
/// in.
class MailServerError : public MailError {
 public:
  using MailError::MailError;
};

/// Hands the message to the server for all its recipients, who do not learn of the Bcc ones. The
/// server has taken it when this returns. Throws MailError with a sentence for staff and the
/// server's own words; the server has taken nothing then, unless it is an UncertainMailError.
void submit(const SmtpServer& server, const MailMessage& message);

}  // namespace autonotify::host
