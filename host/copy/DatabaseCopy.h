#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/copy/CopyPlace.h"
#include "host/database/dialect/DatabaseError.h"

namespace autonotify::host {

/// What is there of a copy cannot become one any more; openCopyTarget begins it anew.
class SpoiltCopy : public DatabaseError {
  using DatabaseError::DatabaseError;
};

struct CopyResult {
  std::int64_t rows = 0;
  int tables = 0;
  /// Rows that an interrupted copy had brought over before.
  std::int64_t foundThere = 0;
};

/// Told after each portion of rows, and once per table at its end.
using CopyProgress =
    std::function<void(const char* step, const std::string& table, std::int64_t rows)>;

/// Copies all rows of `from` to `to`, with their keys and with what tells the database from every
/// other, then reads both side by side, and finishes `to` when they are equal. A finished `to` is
/// compared only.
///
/// Rows go over in the order of their keys, a portion at a time; each portion lasts. An interrupted
/// copy goes on behind the rows that are there. Nobody should write to either meanwhile: a
/// difference is found, and ends the copy.
///
/// Throws DatabaseError: constraint with the table, key and column of a value that `to` cannot
/// hold; SpoiltCopy, foreign when `to` was begun as the copy of another database, constraint with
/// the place of the first difference; alreadyExists when a finished `to` is another database or
/// differs; those of the databases.
CopyResult copyDatabase(CopyPlace& from, CopyPlace& to, const CopyProgress& progress);

}  // namespace autonotify::host
