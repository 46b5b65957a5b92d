#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace autonotify::host {

/// Why a message cannot be sent, as a sentence for staff.
class MailError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Mailbox {
  /// UTF-8; may be empty.
  std::string name;
  /// ASCII: a domain of other letters is in its coded form.
  std::string address;

  friend bool operator==(const Mailbox&, const Mailbox&) = default;
};

/// Reads "jane@x.ca; John Smith <john@x.ca>, ..." parted by commas, semicolons or line ends. Throws
/// MailError for the first entry that is anything else: there are no groups, routes or comments.
std::vector<Mailbox> parseRecipients(std::string_view text);

}  // namespace autonotify::host
