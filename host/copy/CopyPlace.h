#pragma once

#include <memory>
#include <string>

#include "host/database/RecordsetDatabase.h"
#include "host/database/RowSink.h"
#include "host/database/schema/Schema.h"

namespace autonotify::host {

/// One end of a copy: a database of either engine, and what its engine keeps beside the rows.
/// All failures are thrown as PlatformError.
class CopyPlace {
 public:
  virtual ~CopyPlace() = default;

  virtual RecordsetDatabase& database() = 0;
  virtual std::unique_ptr<RowSink> newSink() = 0;
  /// The greatest key that the table ever gave, 0 for none: it may be that of a deleted row.
  virtual Id lastKey(const TableDef& table) = 0;
  virtual void setLastKey(const TableDef& table, Id key) = 0;
  /// The copy is whole: the database opens from now on.
  virtual void finish() = 0;
};

/// A finished database, to read from; a file is opened read-only.
std::unique_ptr<CopyPlace> openCopySource(const std::string& place);

/// An unfinished database to write to: a new one, or one whose copying was interrupted, with the
/// rows that it has. `anew` empties such a one. Throws DatabaseError: alreadyExists for a finished
/// database, foreign for anything else that is there.
std::unique_ptr<CopyPlace> openCopyTarget(const std::string& place, bool anew);

}  // namespace autonotify::host
