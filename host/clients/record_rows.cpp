#include "host/clients/record_rows.h"

#include "platform/PlatformError.h"

namespace autonotify::host {

OpenRows::OpenRows(DatabaseReference& database, const std::string& sql, CursorMode cursor,
                   LockMode lock)
    : database_(database), handle_(database.openRecordset(sql, cursor, lock, -1, {}, -1, false)) {}

OpenRows::~OpenRows() {
  try {
    database_.closeRecordset(handle_);
  } catch (const PlatformError&) {
    // What was read is good; the database lets go of the handle itself.
  }
}

std::string textOf(const Value& value) {
  return value.isNull() ? std::string{} : toText(value);
}

std::string Row::text(const std::string& column) const {
  return textOf(value(column));
}

Id Row::id(const std::string& column, Id fallback) const {
  const Value held = value(column);
  return held.isNull() ? fallback : toInteger(held);
}

bool Row::flag(const std::string& column) const {
  const Value held = value(column);
  return !held.isNull() && toFlag(held);
}

DateTime Row::date(const std::string& column) const {
  const Value held = value(column);
  return held.isNull() ? DateTime{} : toDateTime(held);
}

}  // namespace autonotify::host
