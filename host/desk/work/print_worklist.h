#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "host/desk/Outcome.h"
#include "host/desk/rows/readable_rows.h"

namespace autonotify::host {

/// The channels that are a person's work: a bit set.
inline constexpr int handChannels = nt_Fax | nt_Letter | nt_Phone;

/// What is to go on the list.
struct WorklistWish {
  /// Of handChannels.
  int channels = handChannels;
  /// What is due by then; today when unset.
  std::optional<DateTime> until = std::nullopt;
};

struct PrintedWorklist {
  std::size_t entries = 0;
  /// Of the file; 0 when there is none.
  int pages = 0;
  /// What could not go on the list.
  UnreadableRows unreadable = {};
};

// The letters, faxes and calls that are due, as a list on paper for whoever works them off: of
// calls with the words to be said. Nothing is claimed or marked. Both throw DatabaseError.

/// Shown to a person, who may print it; not shown when nothing is due.
PrintedWorklist showWorklist(Desk& desk, const WorklistWish& wish);
/// As a new PDF file, which is not made when nothing is due. Refused when something of its name is
/// there, when it cannot be written, and at a desk that shows documents to a person.
Outcome<PrintedWorklist> printWorklist(Desk& desk, const WorklistWish& wish,
                                       const std::string& pdf);

}  // namespace autonotify::host
