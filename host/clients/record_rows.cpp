#include "host/clients/record_rows.h"

#include "host/clients/unreadable_rows.h"

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
  return idOf(column, value(column), fallback);
}

bool Row::flag(const std::string& column) const {
  return flagOf(column, value(column));
}

DateTime Row::date(const std::string& column) const {
  return dateOf(column, value(column));
}

std::size_t countRows(DatabaseReference& database, const std::string& from) {
  std::size_t count = 0;
  firstRow(database, "SELECT Count(*) AS CountOfRows FROM " + from + ";",
           [&](const Row& row) { count = static_cast<std::size_t>(row.id("CountOfRows", 0)); });
  return count;
}

}  // namespace autonotify::host
