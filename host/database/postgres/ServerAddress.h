#pragma once

#include <string>
#include <string_view>

namespace autonotify::host {

/// Where a firm's database is on a PostgreSQL server: a URL as libpq reads it, such as
/// "postgresql://server/firm" or "postgresql:///firm?host=/run/postgresql".
///
/// What the URL leaves out comes from libpq's environment variables, service file and password
/// file. The tables are those of the first schema of the search path, which a URL may name:
/// "?options=-csearch_path%3Dfirm".
class ServerAddress {
 public:
  /// Whether a text names a server rather than a file: by how it begins, in any case.
  static bool isUrl(std::string_view text);
  /// The text for messages: without a password, also where it is no URL but was meant for one.
  static std::string shown(std::string_view text);

  /// Throws DatabaseError (cannotOpen) for a URL that libpq does not read, and for one with a
  /// password: whoever lists the processes of the machine would read it.
  explicit ServerAddress(const std::string& url);

  const std::string& url() const { return url_; }
  /// What a connection is made from; holds no password.
  const std::string& parameters() const { return parameters_; }

 private:
  std::string url_;
  std::string parameters_;
};

}  // namespace autonotify::host
