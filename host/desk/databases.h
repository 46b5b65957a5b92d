#pragma once

#include <memory>
#include <string>

#include "host/database/RecordsetDatabase.h"

namespace autonotify::host {

/// Opens the database that a person names: a URL that begins with "postgresql://" or "postgres://",
/// or the path of an SQLite file. Throws DatabaseError.
std::unique_ptr<RecordsetDatabase> openDatabase(const std::string& place);

/// The file of an open database, by its own name whichever name or link led there; empty for one on
/// a server.
std::string fileOf(RecordsetDatabase& database);

/// Whether it is one file, which has a folder to itself and may be copied.
bool isFile(const std::string& place);
/// The place as messages may show it: without a password.
std::string placeShown(const std::string& place);

}  // namespace autonotify::host
