#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "contract/DatabaseReference.h"

namespace autonotify::host {

/// The value as text, empty for NULL.
std::string textOf(const Value& value);

/// The current row of a recordset. A value that cannot be read as what is asked for is thrown as
/// UnreadableValue.
class Row {
 public:
  Row(DatabaseReference& database, RecordsetHandle handle) : database_(database), handle_(handle) {}
  Value value(std::string_view column) const { return database_.getFieldValue(handle_, column); }
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

/// An open recordset, which is closed in any case.
class OpenRows {
 public:
  /// Throws what openRecordset throws.
  OpenRows(DatabaseReference& database, const std::string& sql,
           CursorMode cursor = CursorMode::forwardOnly, LockMode lock = LockMode::readOnly);
  ~OpenRows();
  OpenRows(const OpenRows&) = delete;
  OpenRows& operator=(const OpenRows&) = delete;

  RecordsetHandle handle() const { return handle_; }
  bool isAtEnd() { return database_.isEndOfRecordset(handle_); }
  void moveNext() { database_.moveNext(handle_); }
  Row row() { return {database_, handle_}; }

 private:
  DatabaseReference& database_;
  RecordsetHandle handle_;
};

/// Runs the statement and calls `visit(row)` for each row, streaming.
template <class Visit>
void forEachRow(DatabaseReference& database, const std::string& sql, Visit&& visit) {
  for (OpenRows rows(database, sql); !rows.isAtEnd(); rows.moveNext()) visit(rows.row());
}

/// True when the statement has a row; `visit` sees the first.
template <class Visit>
bool firstRow(DatabaseReference& database, const std::string& sql, Visit&& visit) {
  OpenRows rows(database, sql);
  const bool found = !rows.isAtEnd();
  if (found) visit(rows.row());
  return found;
}

/// How many rows there are of what stands behind FROM: "Schedule WHERE Schedule.Closed=False".
std::size_t countRows(DatabaseReference& database, const std::string& from);

}  // namespace autonotify::host
