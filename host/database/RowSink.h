#pragma once

#include <span>
#include <string_view>

#include "platform/Value.h"

namespace autonotify::host {

/// One column of a row to insert. The name refers to text that outlives the call.
struct Field {
  std::string_view column;
  Value value;
};

/// Takes new rows into a database, whichever the engine. Columns that are not named get their
/// defaults. Failures are thrown as DatabaseError.
class RowSink {
 public:
  virtual ~RowSink() = default;

  /// Everything between begin and commit stands or falls together.
  virtual void begin() = 0;
  virtual void commit() = 0;

  /// The row's key: the given one if `fields` name the key column, otherwise a generated one.
  virtual Id insertRow(std::string_view table, std::span<const Field> fields) = 0;

  /// Writes the fields into the row with this key; nothing when there is none.
  virtual void updateRow(std::string_view table, Id key, std::span<const Field> fields) = 0;

  /// What came so far can be read on the same connection.
  virtual void flush() {}

  Id insert(std::string_view table, std::initializer_list<Field> fields) {
    return insertRow(table, {fields.begin(), fields.size()});
  }
};

}  // namespace autonotify::host
