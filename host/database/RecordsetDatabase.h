#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "contract/DatabaseReference.h"
#include "host/database/Recordset.h"
#include "host/database/Session.h"

namespace autonotify::host {

/// Sees what is written, and may refuse it by throwing PlatformError. Empty members see nothing.
struct WriteWatch {
  /// A row of the table was begun that will have the key; its fields may be set.
  std::function<void(RecordsetHandle handle, const std::string& table, Id key)> begun = nullptr;
  /// A field of the current row of the table is to be stored; True when the row keeps what it has.
  std::function<bool(RecordsetHandle handle, const std::string& table, const std::string& column)>
      storing = nullptr;
  /// A field of the current row was stored.
  std::function<void(RecordsetHandle handle, const std::string& column)> stored = nullptr;
  /// The current row is to be deleted; True when it was put elsewhere instead.
  std::function<bool(RecordsetHandle handle)> deleting = nullptr;
};

/// The whole database contract over one driver; each engine derives from it and opens the driver.
///
/// Every failure is a DatabaseError, or a PlatformError (13, 6) for a value that its column cannot
/// take. Reading types values by the schema's column kinds. Column names may be qualified
/// ("Tasks.Custom1"); a plain name reaches the first column that has it. findRecord compares by the
/// column's kind and exactly: 7 equals " 7 ", a date its other spellings, text only itself; empty
/// text finds NULL and empty text.
class RecordsetDatabase : public DatabaseReference {
 public:
  explicit RecordsetDatabase(std::unique_ptr<Driver> driver);
  ~RecordsetDatabase() override;

  /// Closes all recordsets and the connection; may be called again.
  virtual void close();

  /// What is asked each time before isDatabaseOpen answers, and may refuse by throwing
  /// PlatformError; null for nothing.
  void setGate(std::function<void()> gate) { gate_ = std::move(gate); }
  void setWatch(WriteWatch watch) { watch_ = std::move(watch); }

  /// From True to False a recordset that is opened does not end the reading of another one, so that
  /// a long walk that looks things up goes on at full speed; what is looked up meanwhile may be as
  /// old as the walk. At all other times a recordset is read as the database is when it is opened.
  void readSideBySide(bool sideBySide) noexcept { session_.readSideBySide(sideBySide); }
  /// What is opened from now on is no older than this call, side by side or not.
  void readAnew() noexcept { session_.readAnew(); }

  /// The program waits for a person: what is held so that statements follow each other quickly is
  /// let go, for it keeps the log of a file from beginning anew. Recordsets stay open.
  void rest() noexcept {
    if (driver_) session_.rest();
  }

  /// Runs `write`, all of whose changes of rows last together when this returns; when `write` or
  /// this throws none of them does. No row may be added in it, and no recordset that is opened in
  /// it may be used after it.
  void writeTogether(const std::function<void()>& write);

  /// True until it is closed, also while its server is away.
  bool isDatabaseOpen() override;
  RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock,
                                int reserved1, const std::string& reserved2, int reserved3,
                                bool reserved4) override;
  void closeRecordset(RecordsetHandle handle) override;
  int getRecordCount(RecordsetHandle handle) override;
  bool isRecordsetEmpty(RecordsetHandle handle) override;
  bool isRecordsetOpen(RecordsetHandle handle) override;
  /// A RecordsetObject.
  HostObject* getRecordsetObject(RecordsetHandle handle) override;
  void readColumnIntoArray(RecordsetHandle handle, std::vector<Value>& array,
                           const std::string& fieldName) override;
  bool isEndOfRecordset(RecordsetHandle handle) override;
  Bookmark getBookmark(RecordsetHandle handle) override;
  bool gotoBookmark(RecordsetHandle handle, Bookmark bookmark) override;
  bool hasRecords(RecordsetHandle handle) override;
  bool moveNext(RecordsetHandle handle) override;
  Value getFieldValue(RecordsetHandle handle, std::string_view fieldName) override;
  bool updateFieldValue(RecordsetHandle handle, const std::string& fieldName,
                        const std::string& value, bool reserved1, bool reserved2) override;
  bool deleteRecord(RecordsetHandle handle) override;
  bool addNewRecord(RecordsetHandle handle) override;
  bool setFieldValue(RecordsetHandle handle, const std::string& fieldName,
                     const std::string& value) override;
  bool saveNewRecord(RecordsetHandle handle) override;
  bool findRecord(RecordsetHandle handle, const std::string& fieldName, const std::string& value,
                  const std::string& reserved1, const std::string& reserved2,
                  const std::string& reserved3, const std::string& reserved4) override;
  bool findNextRecord(RecordsetHandle handle) override;
  std::string formatDateForSQL(DateTime moment) override;
  std::string formatTextForSQL(const std::string& text) override;

 protected:
  /// Throws DatabaseError (closed).
  Driver& driver();

 private:
  /// A recordset's place in memory, which outlives it.
  using Place = std::unique_ptr<std::optional<Recordset>>;
  struct Open {
    RecordsetHandle handle;
    Place recordset;
  };
  static constexpr std::size_t mostFreePlaces = 16;

  /// Where the handle stands, or the end.
  std::vector<Open>::iterator placeOf(RecordsetHandle handle);
  Recordset& recordset(RecordsetHandle handle) {
    const bool isLast = !recordsets_.empty() && recordsets_.back().handle == handle;
    return isLast ? **recordsets_.back().recordset : earlierRecordset(handle);
  }
  /// Throws DatabaseError (closed, badHandle).
  Recordset& earlierRecordset(RecordsetHandle handle);

  std::unique_ptr<Driver> driver_;
  Session session_;
  std::vector<Open> recordsets_;  // by handle; the last is asked for most
  std::vector<Place> freePlaces_;
  RecordsetHandle lastHandle_ = 0;
  std::function<void()> gate_;
  WriteWatch watch_;
};

}  // namespace autonotify::host
