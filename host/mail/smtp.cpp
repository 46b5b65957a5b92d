#include "host/mail/smtp.h"

#include <curl/curl.h>
#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string_view>
#include <unordered_set>

#include "host/mail/gmime_handles.h"
#include "host/words/Words.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

struct EasyRelease {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct ListRelease {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

struct Scheme {
  std::string_view name;
  SmtpSecurity security;
  int port;
};
constexpr Scheme schemes[] = {
    {"smtp", SmtpSecurity::startTls, 587},
    {"smtps", SmtpSecurity::tls, 465},
    {"smtp-plain", SmtpSecurity::none, 25},
};

const Scheme& schemeOf(SmtpSecurity security) {
  return *std::ranges::find(schemes, security, &Scheme::security);
}

struct Sentence {
  CURLcode code;
  const char* words;
  /// It is so before any message is told.
  bool isServersFault = false;
};
constexpr Sentence sentences[] = {
    {CURLE_COULDNT_RESOLVE_HOST, Words::later("The mail server cannot be found."), true},
    {CURLE_COULDNT_CONNECT, Words::later("The mail server cannot be reached."), true},
    {CURLE_OPERATION_TIMEDOUT, Words::later("The mail server does not answer.")},
    {CURLE_LOGIN_DENIED,
     Words::later("The mail server does not accept the user's name and password."), true},
    {CURLE_PEER_FAILED_VERIFICATION, Words::later("The mail server does not prove who it is."),
     true},
    {CURLE_SSL_CONNECT_ERROR, Words::later("No safe connection to the mail server comes about."),
     true},
    {CURLE_USE_SSL_FAILED, Words::later("The mail server offers no safe connection."), true},
    {CURLE_SSL_CACERT_BADFILE, Words::later("The file of trusted certificates cannot be read."),
     true},
    {CURLE_SEND_ERROR, Words::later("The mail server does not take the message.")},
    {CURLE_RECV_ERROR, Words::later("The mail server has broken the connection.")},
    {CURLE_GOT_NOTHING, Words::later("The mail server has broken the connection.")},
};

const Sentence& sentenceFor(CURLcode code) {
  static constexpr Sentence other{CURLE_OK,
                                  Words::later("The mail server does not take the message.")};
  const auto* found = std::ranges::find(sentences, code, &Sentence::code);
  return found == std::end(sentences) ? other : *found;
}

constexpr std::string_view goodbye = "221";

/// What goes between the program and the server.
struct Exchange {
  std::string_view unsent;
  /// Something of the message was asked for.
  bool isBegun = false;
  /// The server's refusal of what it was told last.
  std::string refusal;
  /// The whole message had gone out when it was refused.
  bool messageIsRefused = false;
  const std::function<void()>& whileWaiting;
};

std::size_t readMessage(char* buffer, std::size_t size, std::size_t count, void* context) {
  auto& exchange = *static_cast<Exchange*>(context);
  exchange.isBegun = true;
  auto& unsent = exchange.unsent;
  const std::size_t length = std::min(size * count, unsent.size());
  std::copy_n(unsent.data(), length, buffer);
  unsent.remove_prefix(length);
  return length;
}

std::size_t takeAnswer(char* line, std::size_t size, std::size_t count, void* context) {
  auto& exchange = *static_cast<Exchange*>(context);
  const std::string_view answer(line, size * count);
  const bool isRefusal = answer.starts_with('4') || answer.starts_with('5');
  if (isRefusal && exchange.refusal.empty()) {
    exchange.refusal = trim(cleanLine(answer));
    exchange.messageIsRefused = exchange.unsent.empty();
  } else if (!isRefusal && !exchange.messageIsRefused && !answer.starts_with(goodbye)) {
    // Such as of one greeting, after which another was taken.
    exchange.refusal.clear();
  }
  return answer.size();
}

int noteProgress(void* context, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  const auto& whileWaiting = static_cast<Exchange*>(context)->whileWaiting;
  if (whileWaiting) whileWaiting();
  return 0;
}

/// All recipients, each once.
std::unique_ptr<curl_slist, ListRelease> recipientsOf(const MailMessage& message) {
  std::unordered_set<std::string_view> known;
  std::unique_ptr<curl_slist, ListRelease> list;
  curl_slist* last = nullptr;
  for (const auto* mailboxes : {&message.to, &message.cc, &message.bcc}) {
    for (const Mailbox& mailbox : *mailboxes) {
      if (!known.insert(mailbox.address).second) continue;
      // Appends behind `last` without a walk over the whole list.
      curl_slist* grown = curl_slist_append(last, ("<" + mailbox.address + ">").c_str());
      if (!grown) throw std::bad_alloc();
      if (!list) list.reset(grown);
      last = last ? last->next : grown;
    }
  }
  return list;
}

void setServer(CURL* curl, const SmtpServer& server) {
  const bool isTls = server.security == SmtpSecurity::tls;
  const int port = server.port ? server.port : schemeOf(server.security).port;
  const std::string url =
      (isTls ? "smtps://" : "smtp://") + server.host + ':' + std::to_string(port);
  curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
  curl_easy_setopt(curl, CURLOPT_USE_SSL,
                   server.security == SmtpSecurity::none ? CURLUSESSL_NONE : CURLUSESSL_ALL);
  if (!server.certificates.empty())
    curl_easy_setopt(curl, CURLOPT_CAINFO, server.certificates.c_str());
  if (!server.user.empty()) {
    curl_easy_setopt(curl, CURLOPT_USERNAME, server.user.c_str());
    curl_easy_setopt(curl, CURLOPT_PASSWORD, server.password.c_str());
  }
  curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, static_cast<long>(server.connectTimeout.count()));
  curl_easy_setopt(curl, CURLOPT_SERVER_RESPONSE_TIMEOUT,
                   static_cast<long>(server.silenceTimeout.count()));
  // A server that stops taking the message is silent as well.
  curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, static_cast<long>(server.silenceTimeout.count()));
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
}

std::string inBase64(const std::string& text) {
  const GText coded(g_base64_encode(reinterpret_cast<const guchar*>(text.data()), text.size()));
  return coded.get();
}

/// Whether the server has repeated the password in one of the ways in which it was told.
bool holdsPassword(const std::string& answer, const SmtpServer& server) {
  const std::string& password = server.password;
  const std::string plain = '\0' + server.user + '\0' + password;
  const std::string ways[] = {password, inBase64(password), inBase64(plain)};
  return !password.empty() && std::ranges::any_of(ways, [&](const std::string& way) {
    return answer.find(way) != std::string::npos;
  });
}

[[noreturn]] void fail(CURLcode code, const Exchange& exchange, const char* detail) {
  const Sentence& sentence = sentenceFor(code);
  std::string words = Words::tr(sentence.words);
  if (!exchange.refusal.empty()) {
    words = Words::tr("%1 It says: %2", {words, exchange.refusal});
  } else if (*detail) {
    words += std::string(" (") + detail + ")";
  }
  if (exchange.unsent.empty() && !exchange.messageIsRefused)
    throw UncertainMailError(Words::tr("%1 It may have taken the message all the same.", {words}));
  const bool isSilent = code == CURLE_OPERATION_TIMEDOUT && !exchange.isBegun;
  if (sentence.isServersFault || isSilent) throw MailServerError(words);
  throw MailError(words);
}

}  // namespace

SmtpServer parseSmtpServer(const std::string& url) {
  // It is not quoted, as it may hold a password in a place that nobody expects.
  const char* fault =
      Words::later("The address names no mail server; write smtp://USER@HOST:PORT.");
  const std::size_t colon = url.find("://");
  const auto* scheme =
      std::ranges::find(schemes, std::string_view(url).substr(0, colon), &Scheme::name);
  if (colon == std::string::npos || scheme == std::end(schemes)) throw MailError(Words::tr(fault));
  SmtpServer server;
  server.security = scheme->security;
  std::string place = url.substr(colon + 3);
  const std::size_t at = place.rfind('@');
  if (at != std::string::npos) {
    server.user = place.substr(0, at);
    if (server.user.find(':') != std::string::npos)
      throw MailError(
          Words::tr("A password in the address of a mail server could be read by others; give it "
                    "in a file."));
    place.erase(0, at + 1);
  }
  const std::size_t portColon = place.rfind(':');
  if (portColon != std::string::npos && place.find(']', portColon) == std::string::npos) {
    const char* end = place.data() + place.size();
    const auto [stop, error] = std::from_chars(place.data() + portColon + 1, end, server.port);
    if (error != std::errc() || stop != end || server.port < 1 || server.port > 65535)
      throw MailError(Words::tr(fault));
    place.erase(portColon);
  }
  server.host = place;
  if (server.host.empty() || server.host.find_first_of("/ \t") != std::string::npos)
    throw MailError(Words::tr(fault));
  return server;
}

std::string passwordFileWarning(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  if ((status.st_mode & (S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH)) == 0) return {};
  return Words::tr(
      "Others can read or change the password file \"%1\"; take that right from them "
      "(chmod 600).",
      {path});
}

SmtpServer readSmtpServer(const std::string& url, const std::string& passwordFile,
                          std::optional<std::chrono::seconds> timeout) {
  SmtpServer server = parseSmtpServer(url);
  if (timeout) {
    server.silenceTimeout = *timeout;
    server.connectTimeout = std::min(server.connectTimeout, *timeout);
  }
  if (const char* certificates = std::getenv("SSL_CERT_FILE")) server.certificates = certificates;
  if (passwordFile.empty()) return server;
  std::ifstream file(passwordFile);
  if (!std::getline(file, server.password))
    throw MailError(
        Words::tr("The password for the mail server cannot be read from \"%1\".", {passwordFile}));
  if (server.password.ends_with('\r')) server.password.pop_back();
  return server;
}

void submit(const SmtpServer& server, const MailMessage& message) {
  static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
  const std::unique_ptr<CURL, EasyRelease> curl(ready == CURLE_OK ? curl_easy_init() : nullptr);
  if (!curl) throw MailError(Words::tr("The mail library cannot be started."));
  MailMessage open = message;
  open.bcc.clear();
  const std::string text = messageText(open);
  const auto recipients = recipientsOf(message);
  Exchange exchange{text, false, {}, false, server.whileWaiting};
  char detail[CURL_ERROR_SIZE] = "";
  setServer(curl.get(), server);
  curl_easy_setopt(curl.get(), CURLOPT_ERRORBUFFER, detail);
  curl_easy_setopt(curl.get(), CURLOPT_MAIL_FROM, ("<" + message.from.address + ">").c_str());
  curl_easy_setopt(curl.get(), CURLOPT_MAIL_RCPT, recipients.get());
  curl_easy_setopt(curl.get(), CURLOPT_UPLOAD, 1L);
  curl_easy_setopt(curl.get(), CURLOPT_READFUNCTION, readMessage);
  curl_easy_setopt(curl.get(), CURLOPT_READDATA, &exchange);
  curl_easy_setopt(curl.get(), CURLOPT_HEADERFUNCTION, takeAnswer);
  curl_easy_setopt(curl.get(), CURLOPT_HEADERDATA, &exchange);
  curl_easy_setopt(curl.get(), CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(curl.get(), CURLOPT_XFERINFOFUNCTION, noteProgress);
  curl_easy_setopt(curl.get(), CURLOPT_XFERINFODATA, &exchange);
  const CURLcode code = curl_easy_perform(curl.get());
  if (code == CURLE_OK) return;
  if (holdsPassword(exchange.refusal, server))
    exchange.refusal = Words::tr("something about the password");
  fail(code, exchange, detail);
}

}  // namespace autonotify::host
