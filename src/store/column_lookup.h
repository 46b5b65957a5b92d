#pragma once

#include <string>

#include "control/contract/recordsets.h"

// The one pattern of all lookups and validators of the notification store.

namespace autonotify {

/// A statement that wants an id behind it, and the column to read from its first row.
struct ColumnSource {
  const char* statement = nullptr;
  const char* column = nullptr;
};

/// A lookup procedure: where it reads, and where it goes on when there is no row; the second source
/// may be absent.
struct ColumnLookup {
  const char* tag;
  ColumnSource first;
  ColumnSource second = {};
};

/// The statement with the id and the closing ";" behind it.
std::string statementFor(const char* statement, Id id);

/// The column of the first source that has a row. Null when neither has one, for an id below 0, and
/// for a NULL.
Value readColumn(Step& step, const ColumnSource& first, const ColumnSource& second, Id id);

/// The whole procedure: the column as an id, or -1.
Id lookUpId(const ColumnLookup& lookup, Id id);
/// The whole procedure: the column as a text, or the empty text.
std::string lookUpText(const ColumnLookup& lookup, Id id);

/// An id from a value that may be empty; -1 when it is.
Id idOf(Step& step, const Value& value);

/// The whole procedure: True when the text is a number that is above 0 as an integer.
bool isPositiveIdText(const char* tag, const std::string& text);

}  // namespace autonotify
