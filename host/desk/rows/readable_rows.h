#pragma once

#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "host/clients/record_rows.h"
#include "host/clients/unreadable_rows.h"

namespace autonotify::host {

// One row that cannot be read, be it for a date that is none or a number that is too large, keeps
// nobody from the others: lists go on without it and name it.

/// The rows of a list, and those that could not be read.
template <class T>
struct ReadableRows {
  std::vector<T> rows;
  UnreadableRows unreadable;
};

/// "Schedule 12". The statement of the row selects the key of the table.
std::string rowName(const char* table, const Row& row);

/// The condition for a WHERE, widened by the rows whose date in the column nobody can compare. The
/// reader names them, or leaves out what is a date after all that the condition does not want.
std::string orNoDate(const std::string& condition, const char* column);

/// "1, 2, 5, 5" for an IN: the last one is repeated up to a power of two, so that statements which
/// differ in the number of ids are few. Requires one at least.
std::string idList(std::vector<Id> ids);

/// What `read` makes of a row of the table. Throws UnreadableRow.
template <class Read>
auto readRow(const char* table, const Row& row, Read&& read) {
  try {
    return read(row);
  } catch (const UnreadableValue& value) {
    throw UnreadableRow(rowName(table, row), value);
  }
}

/// Appends what `read` makes of each row of the statement.
template <class T, class Read>
void readRows(DatabaseReference& database, const char* table, const std::string& sql,
              ReadableRows<T>& into, Read&& read) {
  forEachRow(database, sql, [&](const Row& row) {
    into.unreadable.orName([&] { into.rows.push_back(readRow(table, row, read)); });
  });
}

/// What `read` makes of the first row of the statement; unset when it has none. Throws
/// UnreadableRow.
template <class Read>
auto findRow(DatabaseReference& database, const char* table, const std::string& sql, Read&& read) {
  std::optional<std::invoke_result_t<Read, const Row&>> found;
  firstRow(database, sql, [&](const Row& row) { found = readRow(table, row, read); });
  return found;
}

}  // namespace autonotify::host
