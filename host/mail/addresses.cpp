#include "host/mail/addresses.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "host/mail/gmime_handles.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr std::size_t longestLocalPart = 64;
constexpr std::size_t longestAddress = 254;

bool isControl(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code < 0x20 || code == 0x7F;
}

bool isBlank(char byte) {
  return byte == ' ' || byte == '\t';
}

/// Follows the quotation marks and comments of a text, byte by byte.
class Nesting {
 public:
  /// Whether the next byte of the text stands outside of them.
  bool isOutside(char byte) {
    const bool wasInside = isInside();
    if (std::exchange(isEscaped_, false)) return false;
    if (byte == '\\' && wasInside) {
      isEscaped_ = true;
    } else if (byte == '"' && comments_ == 0) {
      isQuoted_ = !isQuoted_;
    } else if (!isQuoted_ && (byte == '(' || byte == ')')) {
      comments_ = std::max(0, comments_ + (byte == '(' ? 1 : -1));
    } else {
      return !wasInside;
    }
    return false;
  }
  bool isInside() const { return isQuoted_ || comments_ > 0; }

 private:
  bool isQuoted_ = false;
  bool isEscaped_ = false;
  int comments_ = 0;
};

/// One entry off the front, up to a separator outside of quotation marks and comments.
std::string_view takeEntry(std::string_view& text) {
  Nesting nesting;
  const auto isEnd = [&](char byte) {
    const bool isOutside = nesting.isOutside(byte);
    return byte == '\r' || byte == '\n' || (isOutside && (byte == ',' || byte == ';'));
  };
  const std::string_view entry(text.begin(), std::ranges::find_if(text, isEnd));
  text.remove_prefix(std::min(entry.size() + 1, text.size()));
  return entry;
}

bool isDomain(std::string_view domain) {
  const auto isAllowed = [](char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '-' || byte == '.';
  };
  if (domain.starts_with('[') && domain.ends_with(']')) return domain.size() > 2;
  return !domain.empty() && std::ranges::all_of(domain, isAllowed) && !domain.starts_with('.') &&
         !domain.ends_with('.') && domain.find("..") == domain.npos;
}

bool isLocalPart(std::string_view local) {
  if (local.size() > 2 && local.starts_with('"') && local.ends_with('"')) return true;
  const auto isAllowed = [](char byte) {
    return static_cast<unsigned char>(byte) > 0x20 && static_cast<unsigned char>(byte) < 0x7F &&
           std::string_view("()<>[]:;@\\,\"").find(byte) == std::string_view::npos;
  };
  return !local.empty() && std::ranges::all_of(local, isAllowed) && !local.starts_with('.') &&
         !local.ends_with('.') && local.find("..") == local.npos;
}

bool isAddress(std::string_view address) {
  const std::size_t at = address.rfind('@');
  return at != address.npos && address.size() <= longestAddress && at <= longestLocalPart &&
         std::ranges::none_of(address, isControl) && isLocalPart(address.substr(0, at)) &&
         isDomain(address.substr(at + 1));
}

/// Whether there is an "@", what comes in pairs does so, and no address stands ahead of one in
/// brackets. Of an entry that is otherwise, the mail library's parser may lose memory.
bool hasForm(std::string_view entry) {
  Nesting nesting;
  bool hasAt = false;
  char bracket = '\0';  // the last one
  for (const char byte : entry) {
    if (!nesting.isOutside(byte)) continue;
    hasAt = hasAt || byte == '@';
    if (byte != '<' && byte != '>') continue;
    if (byte == '<' ? hasAt || bracket != '\0' : bracket != '<') return false;
    bracket = byte;
  }
  return hasAt && !nesting.isInside() && bracket != '<';
}

/// The entry when it is one mailbox.
std::optional<Mailbox> readMailbox(const std::string& entry) {
  if (!isValidUtf8(entry) || std::ranges::any_of(entry, isControl) || !hasForm(entry))
    return std::nullopt;
  const ParserOptionsHandle options = strictParserOptions();
  const GHandle<InternetAddressList> list(
      internet_address_list_parse(options.get(), entry.c_str()));
  if (!list || internet_address_list_length(list.get()) != 1) return std::nullopt;
  InternetAddress* address = internet_address_list_get_address(list.get(), 0);
  if (!INTERNET_ADDRESS_IS_MAILBOX(address)) return std::nullopt;
  const char* coded = internet_address_mailbox_get_idn_addr(INTERNET_ADDRESS_MAILBOX(address));
  if (!coded || !isAddress(coded)) return std::nullopt;
  const char* name = internet_address_get_name(address);
  return Mailbox{name ? name : "", coded};
}

}  // namespace

std::vector<Mailbox> parseRecipients(std::string_view text) {
  std::vector<Mailbox> mailboxes;
  while (!text.empty()) {
    std::string_view entry = takeEntry(text);
    while (!entry.empty() && isBlank(entry.front())) entry.remove_prefix(1);
    while (!entry.empty() && isBlank(entry.back())) entry.remove_suffix(1);
    if (entry.empty()) continue;
    std::optional<Mailbox> mailbox = readMailbox(std::string(entry));
    if (!mailbox) throw MailError("\"" + std::string(entry) + "\" is not a valid email address.");
    mailboxes.push_back(*std::move(mailbox));
  }
  return mailboxes;
}

}  // namespace autonotify::host
