#include "host/database/postgres/ServerAddress.h"

#include <libpq-fe.h>

#include <algorithm>
#include <map>
#include <memory>

#include "host/database/dialect/DatabaseError.h"
#include "host/words/Words.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr std::string_view schemes[] = {"postgresql://", "postgres://"};

/// What the values of a result look like, whatever the server's own settings are.
constexpr const char* sessionSettings =
    "-c datestyle=ISO -c extra_float_digits=1 -c idle_in_transaction_session_timeout=0";

/// Others' locks are waited for as long as beside a file, unless the address says otherwise.
constexpr const char* customarySettings = "-c lock_timeout=5s";

using Options = std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)>;

constexpr const char* notAUrl =
    Words::later("The address of the database server is not written as a URL");
constexpr const char* holdsPassword = Words::later(
    "A password is not taken from the address of a database; put it into the password file or the "
    "variable PGPASSWORD");

/// The length of the scheme that a URL begins with; 0 for any other text.
std::size_t schemeLength(std::string_view text) {
  for (const std::string_view scheme : schemes)
    if (equalIgnoreCase(text.substr(0, scheme.size()), scheme)) return scheme.size();
  return 0;
}

/// Null for a URL that libpq does not read. Its own words may quote a password.
Options parse(std::string_view url) {
  const std::size_t scheme = schemeLength(url);
  const std::string text = lowerCase(url.substr(0, scheme)).append(url.substr(scheme));
  return {PQconninfoParse(text.c_str(), nullptr), &PQconninfoFree};
}

bool isSecret(std::string_view keyword) {
  return keyword == "password" || keyword == "sslpassword";
}

std::string quoted(const std::string& value) {
  return '\'' + replaceAll(replaceAll(value, "\\", "\\\\"), "'", "\\'") + '\'';
}

/// Whether the path holds an "@": it is then read wrongly, and a password taken for something else.
bool hasAtInPath(std::string_view url) {
  const std::size_t path = std::min(url.find('/', schemeLength(url)), url.size());
  const std::string_view rest = url.substr(path);
  return rest.substr(0, rest.find('?')).find('@') != std::string_view::npos;
}

/// Why the URL is refused, or null.
const char* faultOf(std::string_view url, const Options& options) {
  if (!options || hasAtInPath(url)) return notAUrl;
  for (const PQconninfoOption* option = options.get(); option->keyword; ++option) {
    if (!option->val) continue;
    const std::string_view value = option->val;
    if (isSecret(option->keyword)) return holdsPassword;
    if (option->keyword == std::string_view("port") &&
        value.find_first_not_of("0123456789,") != std::string_view::npos)
      return notAUrl;
  }
  return nullptr;
}

/// Without what may be a password, wherever it is in an address that cannot be read.
void hidePassword(std::string& address) {
  const std::size_t host = address.find_first_not_of('/', address.find(':') + 1);
  const std::size_t colon = address.find(':', host);
  const std::size_t at = address.rfind('@');
  if (colon < at) address.erase(colon, at == std::string::npos ? at : at - colon);
  for (std::size_t key = address.find('?'); key < address.size();
       key = address.find('&', key + 1)) {
    const std::string_view name =
        std::string_view(address).substr(key, address.find('=', key) - key);
    if (name.find('%') == name.npos && findIgnoreCase(name, "password") == name.npos) continue;
    address.erase(key);
  }
}

/// Whether a person may have meant an address, though it is none.
bool looksLikeAddress(std::string_view text) {
  return (text.find(":/") != text.npos || findIgnoreCase(text, "postgres") == 0) &&
         text.find('@') != text.npos;
}

}  // namespace

bool ServerAddress::isUrl(std::string_view text) {
  return schemeLength(text) > 0;
}

std::string ServerAddress::shown(std::string_view text) {
  std::string result(text);
  if (isUrl(text) ? faultOf(text, parse(text)) != nullptr : looksLikeAddress(text))
    hidePassword(result);
  const std::size_t key = findIgnoreCase(result, "password=");
  return isUrl(text) ? result : result.substr(0, key);
}

ServerAddress::ServerAddress(const std::string& url) : url_(shown(url)) {
  std::map<std::string, std::string> values{{"client_encoding", "UTF8"},
                                            {"connect_timeout", "10"},
                                            {"fallback_application_name", "hvnotify"}};
  const Options options = parse(url);
  if (const char* fault = faultOf(url, options))
    throw DatabaseError(database_error::cannotOpen, Words::tr(fault));
  for (const PQconninfoOption* option = options.get(); option->keyword; ++option)
    if (option->val) values[option->keyword] = option->val;
  values["client_encoding"] = "UTF8";
  std::string& given = values["options"];
  given = std::string(customarySettings) + ' ' + given + ' ' + sessionSettings;
  for (const auto& [keyword, value] : values)
    parameters_ += (parameters_.empty() ? "" : " ") + keyword + '=' + quoted(value);
}

}  // namespace autonotify::host
