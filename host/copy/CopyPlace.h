#pragma once

#include <cstdint>
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
  explicit CopyPlace(bool isFinished) : isFinished_(isFinished) {}
  virtual ~CopyPlace() = default;

  /// Whether it may be opened for work, and so is not to be filled.
  bool isFinished() const { return isFinished_; }
  virtual Engine engine() const = 0;
  virtual RecordsetDatabase& database() = 0;
  virtual std::unique_ptr<RowSink> newSink() = 0;
  /// Where the table's counter of keys stands, 0 for the beginning: it may be behind its rows.
  virtual std::int64_t counter(const TableDef& table) = 0;
  virtual void setCounter(const TableDef& table, std::int64_t key) = 0;
  /// The copy is whole: the database opens from now on.
  virtual void finish() = 0;

 private:
  bool isFinished_;
};

/// A finished database, to read from; a file is opened read-only.
std::unique_ptr<CopyPlace> openCopySource(const std::string& place);

/// A database to write to: a new one, or one whose copying was interrupted, with the rows that it
/// has. `anew` empties such a one. A finished database is opened to be compared, and `anew` refused
/// with alreadyExists. Throws DatabaseError, foreign for anything else that is there.
std::unique_ptr<CopyPlace> openCopyTarget(const std::string& place, bool anew);

}  // namespace autonotify::host
