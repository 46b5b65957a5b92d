#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/database/sqlite/SqliteDatabase.h"

namespace autonotify::bench {

/// One call of the database contract that costs the engine something.
struct DatabaseCall {
  enum class Kind { open, read, next, close, set, save, update };
  Kind kind;
  RecordsetHandle handle;
  /// The statement of an open; the column of a read, a set and an update.
  std::string text;
  /// What an update writes; the key of the row that was saved.
  std::string value;
};

/// A database that notes the calls it answers.
class RecordedDatabase : public host::SqliteDatabase {
 public:
  using SqliteDatabase::SqliteDatabase;

  /// All calls since the last time.
  std::vector<DatabaseCall> takeCalls() { return std::exchange(calls_, {}); }

  RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock,
                                int reserved1, const std::string& reserved2, int reserved3,
                                bool reserved4) override {
    const RecordsetHandle handle = SqliteDatabase::openRecordset(sql, cursor, lock, reserved1,
                                                                 reserved2, reserved3, reserved4);
    note(DatabaseCall::Kind::open, handle, sql);
    return handle;
  }
  Value getFieldValue(RecordsetHandle handle, std::string_view fieldName) override {
    note(DatabaseCall::Kind::read, handle, std::string(fieldName));
    return SqliteDatabase::getFieldValue(handle, fieldName);
  }
  bool moveNext(RecordsetHandle handle) override {
    note(DatabaseCall::Kind::next, handle);
    return SqliteDatabase::moveNext(handle);
  }
  void closeRecordset(RecordsetHandle handle) override {
    note(DatabaseCall::Kind::close, handle);
    SqliteDatabase::closeRecordset(handle);
  }
  bool setFieldValue(RecordsetHandle handle, const std::string& fieldName,
                     const std::string& value) override {
    note(DatabaseCall::Kind::set, handle, fieldName);
    return SqliteDatabase::setFieldValue(handle, fieldName, value);
  }
  bool saveNewRecord(RecordsetHandle handle) override {
    SqliteDatabase::saveNewRecord(handle);
    const sqlite3_int64 key = sqlite3_last_insert_rowid(connection().getHandle());
    note(DatabaseCall::Kind::save, handle, {}, std::to_string(key));
    return true;
  }
  bool updateFieldValue(RecordsetHandle handle, const std::string& fieldName,
                        const std::string& value, bool reserved1, bool reserved2) override {
    note(DatabaseCall::Kind::update, handle, fieldName, value);
    return SqliteDatabase::updateFieldValue(handle, fieldName, value, reserved1, reserved2);
  }

 private:
  void note(DatabaseCall::Kind kind, RecordsetHandle handle, const std::string& text = {},
            const std::string& value = {}) {
    calls_.push_back({kind, handle, text, value});
  }

  std::vector<DatabaseCall> calls_;
};

}  // namespace autonotify::bench
