#pragma once

#include <string>
#include <utility>

#include "contract/procedure.h"
#include "contract/references.h"

namespace autonotify {

// The patterns in which all logic reads and writes tables. Each part is a statement of the caller's
// frame. A handle is closed by the last statement of its pattern; when the person leaves the
// procedure before that, it stays open until the database object closes it.

// One host call each, with the reserved arguments as the contract wants them.

RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock);
void updateField(RecordsetHandle handle, const char* column, const std::string& value);
bool findRecord(RecordsetHandle handle, const char* column, const std::string& value);

/// The statement with the id and the closing ";" behind it.
std::string statementFor(const std::string& statement, Id id);

/// The current date and time as it is written into stamp columns.
std::string nowText();

// The kinds of recordsets in use.
struct Access {
  CursorMode cursor;
  LockMode lock;
};
inline constexpr Access keysetRead{CursorMode::keyset, LockMode::readOnly};
inline constexpr Access keysetUpdate{CursorMode::keyset, LockMode::updatable};
inline constexpr Access forwardRead{CursorMode::forwardOnly, LockMode::readOnly};
inline constexpr Access forwardUpdate{CursorMode::forwardOnly, LockMode::updatable};

inline bool isDatabaseOpen(Step& step) {
  return step.value(false, [] { return database().isDatabaseOpen(); });
}

/// True when the client list of the host knows the client; False for an id below 0.
bool isListedCompany(Step& step, Id companyId);
bool isListedContact(Step& step, Id contactId);

/// Opens the recordset, runs `body(handle)` when it holds a row and `otherwise()` when not, closes
/// it. True when it held one.
template <class Body, class Otherwise>
bool withFirstRow(Step& step, const std::string& sql, Access access, Body&& body,
                  Otherwise&& otherwise) {
  RecordsetHandle handle = noRecordset;
  step.assign(handle, [&] { return openRecordset(sql, access.cursor, access.lock); });
  const bool found = step.value(false, [&] { return database().hasRecords(handle); });
  if (found) {
    body(handle);
  } else {
    otherwise();
  }
  step.run([&] { database().closeRecordset(handle); });
  return found;
}

template <class Body>
bool withFirstRow(Step& step, const std::string& sql, Access access, Body&& body) {
  return withFirstRow(step, sql, access, body, [] {});
}

/// The same for the statement of one id; an id below 0 is not looked up, as if it had no row.
template <class Body, class Otherwise>
bool withRow(Step& step, const std::string& statement, Id id, Access access, Body&& body,
             Otherwise&& otherwise) {
  if (id >= 0) return withFirstRow(step, statementFor(statement, id), access, body, otherwise);
  otherwise();
  return false;
}

template <class Body>
bool withRow(Step& step, const std::string& statement, Id id, Access access, Body&& body) {
  return withRow(step, statement, id, access, body, [] {});
}

/// Opens the recordset, runs `body(handle)` for each row until it returns False, closes it.
template <class Body>
void forEachRow(Step& step, const std::string& sql, Access access, Body&& body) {
  withFirstRow(step, sql, access, [&](RecordsetHandle handle) {
    while (!step.value(true, [&] { return database().isEndOfRecordset(handle); })) {
      if (!body(handle)) return;
      step.run([&] { database().moveNext(handle); });
    }
  });
}

/// Adds one row through a handle on the whole table: `setFields(handle)` writes its columns; the
/// generated key goes to `key` before the row is saved, so that it is held when the person leaves.
template <class SetFields>
void addRow(Step& step, Id& key, const char* table, const char* keyColumn, SetFields&& setFields) {
  RecordsetHandle handle = noRecordset;
  step.assign(handle, [&] {
    const std::string sql = std::string("SELECT ") + table + ".* FROM " + table + ";";
    return openRecordset(sql, CursorMode::keyset, LockMode::updatable);
  });
  step.run([&] { database().addNewRecord(handle); });
  setFields(handle);
  step.assign(key, [&] { return toInteger(database().getFieldValue(handle, keyColumn)); });
  step.run([&] { database().saveNewRecord(handle); });
  step.run([&] { database().closeRecordset(handle); });
}

/// The same; gives the key, or -1 when reading it was skipped.
template <class SetFields>
Id addRow(Step& step, const char* table, const char* keyColumn, SetFields&& setFields) {
  Id key = noId;
  addRow(step, key, table, keyColumn, std::forward<SetFields>(setFields));
  return key;
}

/// One column of the row being added. `value()` gives its text and is part of the statement.
template <class TextOf>
void setField(Step& step, RecordsetHandle handle, const char* column, TextOf&& value) {
  step.run([&] { database().setFieldValue(handle, column, value()); });
}

/// One column of the current row, saved at once. `value()` gives its text and is part of the
/// statement.
template <class TextOf>
void writeField(Step& step, RecordsetHandle handle, const char* column, TextOf&& value) {
  step.run([&] { updateField(handle, column, value()); });
}

/// A column of the current row; null when the statement is skipped.
Value readField(Step& step, RecordsetHandle handle, const char* column);

/// True for null and empty text, as the host's utilities see it. A skipped test reads as True.
bool isEmpty(Step& step, const Value& value);

/// An integer column of the current row, or `fallback` when it is empty or a statement is skipped.
Id readId(Step& step, RecordsetHandle handle, const char* column, Id fallback = noId);

/// A flag column of the current row; False when it is empty or a statement is skipped.
bool readFlag(Step& step, RecordsetHandle handle, const char* column);

/// A text column of the current row, empty for NULL.
std::string readText(Step& step, RecordsetHandle handle, const char* column);

}  // namespace autonotify
