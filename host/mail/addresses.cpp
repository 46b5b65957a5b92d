#include "host/mail/addresses.h"

#include <arpa/inet.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "host/mail/gmime_handles.h"
#include "host/words/Words.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::size_t longestLocalPart = 64;
constexpr std::size_t longestAddress = 254;

bool isControl(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code < 0x20 || code == 0x7F;
}

bool isAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

/// Of a domain as people write it, with letters beyond ASCII.
bool isDomainByte(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9') || byte == '-' || byte == '.' || !isAscii(byte);
}

bool isLocalByte(char byte) {
  return byte > ' ' && byte < 0x7F && std::string_view("()<>[]:;@\\,\"").find(byte) == npos;
}

bool isLine(std::string_view text) {
  return isValidUtf8(text) && std::ranges::none_of(text, isControl);
}

std::string_view withoutBlanks(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// Where one of `sought` stands outside of quotation marks.
std::size_t findUnquoted(std::string_view text, std::string_view sought) {
  bool isQuoted = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '"') {
      isQuoted = !isQuoted;
    } else if (isQuoted && text[at] == '\\') {
      ++at;
    } else if (!isQuoted && sought.find(text[at]) != npos) {
      return at;
    }
  }
  return npos;
}

/// What stands ahead of the end, which is taken off with it.
std::string_view takeUpTo(std::size_t end, std::string_view& text) {
  const std::string_view piece = text.substr(0, end);
  text.remove_prefix(std::min(piece.size() + 1, text.size()));
  return piece;
}

/// One or more bytes in quotation marks, those and backslashes among them escaped.
bool isQuotedString(std::string_view text) {
  if (text.size() < 3 || !text.starts_with('"') || !text.ends_with('"')) return false;
  const std::string_view inner = text.substr(1, text.size() - 2);
  for (std::size_t at = 0; at < inner.size(); ++at)
    if (inner[at] == '"' || (inner[at] == '\\' && ++at == inner.size())) return false;
  return true;
}

bool isDotted(std::string_view text, bool (*isAllowed)(char)) {
  return !text.empty() && std::ranges::all_of(text, isAllowed) && !text.starts_with('.') &&
         !text.ends_with('.') && text.find("..") == npos;
}

bool isLocalPart(std::string_view local) {
  return local.size() <= longestLocalPart &&
         (isQuotedString(local) || isDotted(local, isLocalByte));
}

/// "[192.0.2.1]" or "[IPv6:2001:db8::1]".
bool isAddressLiteral(std::string_view domain) {
  if (!domain.starts_with('[') || !domain.ends_with(']')) return false;
  constexpr std::string_view tag = "IPv6:";
  const std::string_view inner = domain.substr(1, domain.size() - 2);
  const bool isTagged = equalIgnoreCase(inner.substr(0, tag.size()), tag);
  const std::string number(inner.substr(isTagged ? tag.size() : 0));
  in6_addr parsed;
  return inet_pton(isTagged ? AF_INET6 : AF_INET, number.c_str(), &parsed) == 1;
}

bool isAddress(std::string_view address) {
  const std::size_t at = address.rfind('@');
  if (at == npos || !isLocalPart(address.substr(0, at))) return false;
  const std::string_view domain = address.substr(at + 1);
  return isDotted(domain, isDomainByte) || isAddressLiteral(domain);
}

/// What a server takes for the address, if any.
std::optional<std::string> codedAddress(std::string_view address) {
  if (!isAddress(address)) return std::nullopt;
  const GHandle<InternetAddress> mailbox(
      internet_address_mailbox_new(nullptr, std::string(address).c_str()));
  const char* written =
      internet_address_mailbox_get_idn_addr(INTERNET_ADDRESS_MAILBOX(mailbox.get()));
  const std::string_view coded = written ? written : "";
  if (coded.size() > longestAddress || !std::ranges::all_of(coded, isAscii) || !isAddress(coded))
    return std::nullopt;
  return std::string(coded);
}

/// The name that words, quoted strings and encoded words make up, if they do.
std::optional<std::string> nameOf(std::string_view phrase) {
  if (findUnquoted(phrase, "[]<>:;@\\,") != npos) return std::nullopt;
  std::string words(phrase);
  g_mime_utils_unquote_string(words.data());
  const GText decoded(g_mime_utils_header_decode_phrase(nullptr, words.c_str()));
  if (!isLine(decoded.get())) return std::nullopt;
  return std::string(withoutBlanks(decoded.get()));
}

/// The entry when it is an address, or a name (or none) and an address in brackets.
std::optional<Mailbox> readMailbox(std::string_view entry) {
  if (!isLine(entry)) return std::nullopt;
  std::string_view phrase;
  std::string_view address = entry;
  if (const std::size_t bracket = findUnquoted(entry, "<"); bracket != npos) {
    if (!address.ends_with('>')) return std::nullopt;
    address.remove_suffix(1);
    phrase = withoutBlanks(takeUpTo(bracket, address));
    address = withoutBlanks(address);
  }
  initMail();
  std::optional<std::string> name = nameOf(phrase);
  std::optional<std::string> coded = codedAddress(address);
  if (!name || !coded) return std::nullopt;
  return Mailbox{*std::move(name), *std::move(coded)};
}

}  // namespace

std::vector<Mailbox> parseRecipients(std::string_view text) {
  std::vector<Mailbox> mailboxes;
  while (!text.empty()) {
    std::string_view line = takeUpTo(text.find_first_of("\r\n"), text);
    while (!line.empty()) {
      const std::string_view entry = withoutBlanks(takeUpTo(findUnquoted(line, ",;"), line));
      if (entry.empty()) continue;
      std::optional<Mailbox> mailbox = readMailbox(entry);
      if (!mailbox) throw MailError(Words::tr("\"%1\" is not a valid email address.", {entry}));
      mailboxes.push_back(*std::move(mailbox));
    }
  }
  return mailboxes;
}

}  // namespace autonotify::host
