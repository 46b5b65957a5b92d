#pragma once

#include <string>
#include <string_view>

#include "contract/procedure.h"
#include "contract/references.h"

namespace autonotify {

// What procedures do with recordsets and values besides rows (contract/rows.h).

// The kinds of recordsets in use.
struct Access {
  CursorMode cursor;
  LockMode lock;
};
inline constexpr Access keysetRead{CursorMode::keyset, LockMode::readOnly};
inline constexpr Access keysetUpdate{CursorMode::keyset, LockMode::updatable};
inline constexpr Access forwardRead{CursorMode::forwardOnly, LockMode::readOnly};
inline constexpr Access forwardUpdate{CursorMode::forwardOnly, LockMode::updatable};

// One host call each, with the reserved arguments as the contract wants them.

RecordsetHandle openRecordset(const std::string& sql, Access access);
void updateField(RecordsetHandle handle, const char* column, const std::string& value);
bool findRecord(RecordsetHandle handle, const char* column, const std::string& value);

/// The statement with the id and the closing ";" behind it.
std::string statementFor(std::string_view statement, Id id);

/// The current date and time as it is written into stamp columns.
std::string nowText();

inline bool isDatabaseOpen(Step& step) {
  return step.value(false, [] { return database().isDatabaseOpen(); });
}

/// True when the client list of the host knows the client; False for an id below 0.
bool isListedCompany(Step& step, Id companyId);
bool isListedContact(Step& step, Id contactId);

/// True for null and empty text, as the host's utilities see it. A skipped test reads as True.
bool isEmpty(Step& step, const Value& value);

/// A value that may be empty as an id; `fallback` when it is, or when a statement is skipped.
Id idOf(Step& step, const Value& value, Id fallback = noId);

}  // namespace autonotify
