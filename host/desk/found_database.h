#pragma once

#include <functional>
#include <string>

#include "host/database/RowSink.h"

namespace autonotify::host {

/// Makes a new database at the place, filled by `fill` and told from every other by an identity. A
/// file appears whole or not at all; on a server what was interrupted cannot be opened, and the
/// next founding begins anew. Throws DatabaseError: alreadyExists when something is there.
void foundDatabase(const std::string& place, const std::function<void(RowSink& sink)>& fill);

}  // namespace autonotify::host
