#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DateTime.h"
#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

/// A recordset of a DatabaseReference; never reused while the database object lives.
using RecordsetHandle = std::int32_t;
inline constexpr RecordsetHandle noRecordset = -1;

/// A row of one recordset; only good for gotoBookmark on the same handle.
using Bookmark = std::int64_t;

enum class CursorMode : int { forwardOnly = 0, keyset = 1 };
enum class LockMode : int { readOnly = 1, updatable = 3 };

/// The host's open relational database, reached by recordsets.
///
/// Every operation reports failure by throwing PlatformError; the ok results tell no more than
/// that. Statements are plain SELECTs ending in ";" with date literals between # marks, the flag
/// literals True and False in any case, text between single quotes and nested INNER JOINs; anything
/// else is refused. Column names are matched in any case. Values read come back as null, flag,
/// number, date-time or text by the kind of their column; values are written as text, and the empty
/// text into a date-time column stores NULL. Rows that a statement does not order stand in the
/// order of the keys of its tables, from left to right.
///
/// Each updateFieldValue is durable on its own; there are no transactions. Several handles may be
/// open at once, also on one table; a row written through one is read by a handle opened later.
class DatabaseReference {
 public:
  virtual ~DatabaseReference() = default;

  virtual bool isDatabaseOpen() = 0;

  /// Runs the statement and positions on the first row. The four reserved arguments are -1, empty
  /// text, -1, False at every call. A whole-table handle opened for adding must not read the table.
  virtual RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock,
                                        int reserved1, const std::string& reserved2, int reserved3,
                                        bool reserved4) = 0;
  virtual void closeRecordset(RecordsetHandle handle) = 0;
  virtual int getRecordCount(RecordsetHandle handle) = 0;
  virtual bool isRecordsetEmpty(RecordsetHandle handle) = 0;
  /// Never throws: False for a handle that is closed or was never given out.
  virtual bool isRecordsetOpen(RecordsetHandle handle) = 0;
  /// The recordset itself, as a report engine takes it; owned by the database, good until the
  /// handle is closed.
  virtual HostObject* getRecordsetObject(RecordsetHandle handle) = 0;
  /// Appends the column's values of all rows; the position stays.
  virtual void readColumnIntoArray(RecordsetHandle handle, std::vector<Value>& array,
                                   const std::string& fieldName) = 0;
  /// True past the last row, and at once on an empty recordset.
  virtual bool isEndOfRecordset(RecordsetHandle handle) = 0;
  virtual Bookmark getBookmark(RecordsetHandle handle) = 0;
  virtual bool gotoBookmark(RecordsetHandle handle, Bookmark bookmark) = 0;
  virtual bool hasRecords(RecordsetHandle handle) = 0;
  virtual bool moveNext(RecordsetHandle handle) = 0;
  /// A column of the current row, or of the row being added.
  virtual Value getFieldValue(RecordsetHandle handle, std::string_view fieldName) = 0;
  /// Writes one column of the current row and saves it at once. Reserved: False, False.
  virtual bool updateFieldValue(RecordsetHandle handle, const std::string& fieldName,
                                const std::string& value, bool reserved1, bool reserved2) = 0;
  virtual bool deleteRecord(RecordsetHandle handle) = 0;
  /// Starts a new row, which becomes current; its generated key can be read before it is saved.
  virtual bool addNewRecord(RecordsetHandle handle) = 0;
  virtual bool setFieldValue(RecordsetHandle handle, const std::string& fieldName,
                             const std::string& value) = 0;
  /// Stores the row being added, whole or not at all.
  virtual bool saveNewRecord(RecordsetHandle handle) = 0;
  /// Positions on the first row, from the top, whose column equals the value; never runs the
  /// statement again. When no row does, the position is past the last row. The reserved texts are
  /// empty.
  virtual bool findRecord(RecordsetHandle handle, const std::string& fieldName,
                          const std::string& value, const std::string& reserved1,
                          const std::string& reserved2, const std::string& reserved3,
                          const std::string& reserved4) = 0;
  /// The next row that matches the last findRecord on this handle; without one, the next row.
  virtual bool findNextRecord(RecordsetHandle handle) = 0;

  /// The text that goes between the two # marks of a date literal.
  virtual std::string formatDateForSQL(DateTime moment) = 0;
  /// The text that goes between two single quotes.
  virtual std::string formatTextForSQL(const std::string& text) = 0;
};

}  // namespace autonotify
