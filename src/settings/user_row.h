#pragma once

#include <string>

#include "contract/rows.h"

namespace autonotify {

/// The person at work, none when nobody can tell.
inline Id currentUser(Step& step) {
  return step.value(noId, [] { return locale().getCurrentUserID(); });
}

/// Through the handle of the person's statement, which must be opened anew to show the row.
void addUserRow(Step& step, RecordsetHandle handle, Id userId);

/// Runs `body(row)` on the person's row, which is added when there is none. `statement` ends where
/// the person's id stands; a row that was added is opened as `added` says.
template <class Body>
void withUserRow(Step& step, const std::string& statement, Id userId, Access added, Body&& body) {
  const std::string sql = statementFor(statement, userId);
  RecordsetHandle handle = step.value(noRecordset, openRecordset, sql, keysetUpdate);
  const Row before(step, handle);
  if (!before.exists(true)) {
    addUserRow(step, handle, userId);
    before.close();
    step.assign(handle, openRecordset, sql, added);
  }
  const Row row(step, handle);
  if (row.exists()) body(row);
  row.close();
}

}  // namespace autonotify
