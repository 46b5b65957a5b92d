#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/work/send_notification.h"

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
  /// Its marking was interrupted.
  unknownWhetherSent,
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
  /// Where it was filed; empty when it was not.
  std::string filed = {};
  /// Why a notification that was printed could not be marked sent.
  std::string markFault = {};
  /// Unset when it is not there.
  std::optional<SendSubject> about = std::nullopt;
};

struct PrintedDocuments {
  /// One for each notification, in their order.
  std::vector<PrintOutcome> outcomes;
  /// Of the file; 0 when there is none, because nothing could be printed or it was not written.
  int pages = 0;
};

/// True when there was a document of the same name and day already beside which it was filed: one
/// of another notification, or of the same one in an earlier run.
bool isBesideAnother(const std::string& filed);

/// Makes the documents of letters and faxes, files each in its client's folder, and prints all of
/// them into one file. What is to be marked stays claimed until it is, so that no other desk sends
/// it. Refused when the file cannot be begun.
Outcome<PrintedDocuments> printDocuments(Desk& desk, const std::vector<Id>& notifications,
                                         const PrintWish& wish);

}  // namespace autonotify::host
