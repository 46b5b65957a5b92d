#include "host/database/postgres/ServerAddress.h"

#include <libpq-fe.h>

#include <map>
#include <memory>

#include "host/database/dialect/DatabaseError.h"
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

[[noreturn]] void refuse(const std::string& why) {
  throw DatabaseError(database_error::cannotOpen, why);
}

Options parse(const std::string& url) {
  char* fault = nullptr;
  Options options(PQconninfoParse(url.c_str(), &fault), &PQconninfoFree);
  const std::unique_ptr<char, decltype(&PQfreemem)> words(fault, &PQfreemem);
  // The library's own words may quote the URL with its password.
  if (!options) refuse("The address of the database server is not written as a URL");
  return options;
}

bool isSecret(std::string_view keyword) {
  return keyword == "password" || keyword == "sslpassword";
}

std::string quoted(const std::string& value) {
  return '\'' + replaceAll(replaceAll(value, "\\", "\\\\"), "'", "\\'") + '\'';
}

}  // namespace

bool ServerAddress::isUrl(std::string_view text) {
  for (const std::string_view scheme : schemes)
    if (text.starts_with(scheme)) return true;
  return false;
}

std::string ServerAddress::shown(std::string_view text) {
  std::string result(text);
  if (!isUrl(text)) return result;
  const std::size_t begin = result.find("://") + 3;
  const std::size_t end = result.find_first_of("/?", begin);
  const std::size_t at = result.rfind('@', end);
  const std::size_t colon = result.find(':', begin);
  if (at != std::string::npos && colon < at) result.erase(colon, at - colon);
  for (std::size_t place = result.find("password="); place != std::string::npos;
       place = result.find("password=", place + 9))
    result.erase(place + 9, result.find('&', place) - place - 9);
  return result;
}

ServerAddress::ServerAddress(const std::string& url) : url_(shown(url)) {
  std::map<std::string, std::string> values{{"client_encoding", "UTF8"},
                                            {"connect_timeout", "10"},
                                            {"fallback_application_name", "hvnotify"}};
  const Options options = parse(url);
  for (const PQconninfoOption* option = options.get(); option->keyword; ++option) {
    if (!option->val) continue;
    if (isSecret(option->keyword))
      refuse(
          "A password is not taken from the address of a database; put it into the password "
          "file or the variable PGPASSWORD");
    values[option->keyword] = option->val;
  }
  values["client_encoding"] = "UTF8";
  std::string& given = values["options"];
  given = std::string(customarySettings) + ' ' + given + ' ' + sessionSettings;
  for (const auto& [keyword, value] : values)
    parameters_ += (parameters_.empty() ? "" : " ") + keyword + '=' + quoted(value);
}

}  // namespace autonotify::host
