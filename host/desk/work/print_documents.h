#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/work/one_notification.h"

namespace autonotify::host {

/// The channels whose notifications are printed: a bit set.
inline constexpr int printedChannels = nt_Fax | nt_Letter;

/// How documents are to be printed.
struct PrintWish {
  /// The PDF file that they become the pages of; there must be none of its name.
  std::string pdf;
  /// Marks as sent what was printed, once the file is whole.
  bool mark = false;
  /// Prints also what was sent, and where it cannot be known whether it was sent.
  bool again = false;
};

enum class PrintResult {
  /// It is in the file, and filed.
  printed,
  /// It has no document.
  otherChannel,
  alreadySent,
  cancelled,
  /// Whoever writes it is not done.
  unfinished,
  /// Its marking was interrupted.
  unknownWhetherSent,
  /// There is nothing in it to read.
  noText,
  /// It could not be filed, or its row not be read: it is not in the file.
  failed,
  /// The file could not be written: it was filed, or not even tried.
  notWritten,
  atWorkElsewhere,
  notThere,
};

/// What became of one document.
struct PrintOutcome {
  PrintResult result = PrintResult::failed;
  /// Of a failure its reason.
  std::string detail = {};
  int pages = 0;
  /// Where it was filed; unset when it was not.
  std::optional<FiledDocument> filed = std::nullopt;
  /// True when it is known to be marked sent.
  bool isMarked = false;
  /// Why it could not be marked, when it was to be.
  std::string markFault = {};
  Id id = noId;
  /// Unset when it is not there.
  std::optional<NotificationSubject> about = std::nullopt;
};

struct PrintedDocuments {
  /// One for each notification, in their order.
  std::vector<PrintOutcome> outcomes;
  /// Of the file; 0 when there is none, because nothing could be printed or it was not written.
  int pages = 0;
};

/// Makes the documents of letters and faxes, files each in its client's folder, and prints all of
/// them into one file. Each is claimed while its document is made, and again while it is marked:
/// one that was cancelled or deleted in between is told and stays so. Only one desk prints at a
/// time, so that nothing gets into two files to be marked. Refused when another one prints, and
/// when the file cannot be begun.
Outcome<PrintedDocuments> printDocuments(Desk& desk, const std::vector<Id>& notifications,
                                         const PrintWish& wish);

}  // namespace autonotify::host
