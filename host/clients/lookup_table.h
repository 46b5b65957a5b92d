#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "contract/DatabaseReference.h"

namespace autonotify::host {

/// Where a kind of lookup is read from.
struct LookupSource {
  const char* table;
  /// An integer column; of several rows with one value the first by `order` counts.
  const char* key;
  const char* order;
  std::vector<const char*> columns;
  /// A condition on the rows, or empty.
  const char* filter = "";
};

/// The values of a row, in the order of LookupSource::columns.
using LookupRow = std::vector<Value>;

/// Rows of one table by an integer key, read one by one or all at once.
///
/// With a closed database no row is found. Otherwise failures of the database pass through.
class LookupTable {
 public:
  /// `database` must outlive this object.
  LookupTable(DatabaseReference& database, LookupSource source);

  /// The key's row, which stays until the next call, or null. Reads that row alone, unless
  /// `wholeTable` is set: then the first call reads the table and later ones read nothing until
  /// forget().
  const LookupRow* find(Id key, bool wholeTable);
  /// The id that the first column of the key's row holds; noId for none. Throws UnreadableRow.
  Id linkOf(Id key, bool wholeTable);
  /// All rows by key, read now. A key that cannot be read is no one's to look for.
  std::vector<std::pair<Id, LookupRow>> readAll();
  void forget();

 private:
  std::string selectWhere(const std::string& condition) const;
  std::vector<std::pair<Id, LookupRow>> read(const std::string& sql, bool firstOnly);
  const LookupRow* readSingle(Id key);
  const LookupRow* findHeld(Id key);

  DatabaseReference& database_;
  LookupSource source_;
  std::string rowByKey_;   // without the key
  std::size_t keyAt_ = 0;  // where that stands in it
  std::optional<std::unordered_map<Id, LookupRow>> held_;
  /// What was found in the whole table last: of one row several things are asked for.
  Id lastKey_ = noId;
  const LookupRow* last_ = nullptr;
  /// The row that was read alone.
  LookupRow single_;
};

}  // namespace autonotify::host
