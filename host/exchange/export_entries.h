#pragma once

#include <functional>
#include <string>

#include "contract/DatabaseReference.h"
#include "host/exchange/EntryKind.h"

namespace autonotify::host {

/// Told each line, with its end.
using LineWriter = std::function<void(const std::string& line)>;

/// The headings of all columns of the kind.
std::string headingLine(const EntryKind& kind);

/// Writes headings and entries as importFiles reads them, in the order of their keys: what an
/// empty firm reads of them is the same. Gives the number of entries. Throws what the database
/// throws.
std::size_t exportEntries(DatabaseReference& database, const EntryKind& kind,
                          const LineWriter& write);

}  // namespace autonotify::host
