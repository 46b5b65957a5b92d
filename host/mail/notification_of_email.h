#pragma once

#include <optional>
#include <string>

#include "contract/DatabaseReference.h"

namespace autonotify::host {

/// An email as it was written, each part as one text.
struct EmailWords {
  std::string to;
  std::string cc;
  std::string bcc;
  std::string subject;
  std::string body;
};

struct EmailRow {
  Id id = noId;
  /// The rich text that the body was made from.
  std::string memo;
};

/// The notification that is being sent in these words: of those that hold them and are not sent
/// yet, the one that was written last. Whoever composes an email saves it before it is sent; a part
/// left empty keeps what the row had. Nothing when no row holds them. Throws PlatformError.
std::optional<EmailRow> notificationOf(DatabaseReference& database, const EmailWords& words);

}  // namespace autonotify::host
