#pragma once

#include <string>

#include "control/contract/DatabaseReference.h"

namespace autonotify::host {

/// The current row of a recordset.
class Row {
 public:
  Row(DatabaseReference& database, RecordsetHandle handle) : database_(database), handle_(handle) {}
  Value value(const std::string& column) const { return database_.getFieldValue(handle_, column); }
  /// Empty for NULL.
  std::string text(const std::string& column) const;
  /// `fallback` for NULL.
  Id id(const std::string& column, Id fallback = noId) const;
  bool flag(const std::string& column) const;
  /// The zero date for NULL.
  DateTime date(const std::string& column) const;

 private:
  DatabaseReference& database_;
  RecordsetHandle handle_;
};

/// Runs the statement and calls `visit(row)` for each row, streaming.
template <class Visit>
void forEachRow(DatabaseReference& database, const std::string& sql, Visit&& visit) {
  const RecordsetHandle handle =
      database.openRecordset(sql, CursorMode::forwardOnly, LockMode::readOnly, -1, {}, -1, false);
  struct Closer {
    DatabaseReference& database;
    RecordsetHandle handle;
    ~Closer() { database.closeRecordset(handle); }
  } closer{database, handle};
  for (; !database.isEndOfRecordset(handle); database.moveNext(handle)) {
    visit(Row(database, handle));
  }
}

/// True when the statement has a row; `visit` sees the first.
template <class Visit>
bool firstRow(DatabaseReference& database, const std::string& sql, Visit&& visit) {
  bool found = false;
  forEachRow(database, sql, [&](const Row& row) {
    if (!found) visit(row);
    found = true;
  });
  return found;
}

}  // namespace autonotify::host
