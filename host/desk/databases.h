#pragma once

#include <memory>
#include <string>

#include "host/database/RecordsetDatabase.h"
#include "host/database/RowSink.h"

namespace autonotify::host {

/// Opens the database that a person names: a URL that begins with "postgresql://" or "postgres://",
/// or the path of an SQLite file. Throws DatabaseError.
std::unique_ptr<RecordsetDatabase> openDatabase(const std::string& place);

/// The file of an open database, by its own name whichever name or link led there; empty for one on
/// a server.
std::string fileOf(RecordsetDatabase& database);

/// For many rows at once into an open database that others may use meanwhile. The database must
/// outlive the sink.
std::unique_ptr<RowSink> sinkInto(RecordsetDatabase& database);

/// The schema that databases have and the engines of this machine: "schema 1, SQLite 3.40.1, ...".
std::string databaseVersions();

/// Whether it is one file, which has a folder to itself and may be copied.
bool isFile(const std::string& place);
/// The place as messages may show it: without a password.
std::string placeShown(const std::string& place);

}  // namespace autonotify::host
