#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "contract/DatabaseReference.h"
#include "host/database/Recordset.h"
#include "host/database/Session.h"

namespace autonotify::host {

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
  Value getFieldValue(RecordsetHandle handle, const std::string& fieldName) override;
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
  Recordset& recordset(RecordsetHandle handle);

  std::unique_ptr<Driver> driver_;
  Session session_;
  std::unordered_map<RecordsetHandle, Recordset> recordsets_;
  RecordsetHandle lastHandle_ = 0;
};

}  // namespace autonotify::host
