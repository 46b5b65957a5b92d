#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "contract/DatabaseReference.h"
#include "host/database/ColumnIndex.h"
#include "host/database/RecordsetObject.h"
#include "host/database/RowList.h"

namespace autonotify::host {

/// One open recordset: a position among its rows, and a row being added to it.
///
/// Which rows belong to it is settled when the statement runs; their values are read when they are
/// wanted. Both cursor modes behave alike: a forward-only recordset can be searched from its top
/// and be returned to a bookmark. Rows that someone else has deleted are passed over by moving and
/// searching; standing on one, reading and writing fail with `rowGone`.
///
/// A column is written in the table it comes from, also over joins. deleteRecord deletes the row of
/// the first table of the FROM clause. Rows are added to recordsets of a single table only; a row
/// that was saved is the current one and stands behind all others.
class Recordset : public RecordsetObject {
 public:
  Recordset(Session& session, const std::string& sql, CursorMode cursor, LockMode lock);

  std::vector<std::string> columnNames() const override;
  std::vector<std::vector<Value>> allRows() override;
  void appendColumn(const std::string& name, std::vector<Value>& array);

  std::size_t count() { return rows_.count() - deleted_.size(); }
  bool hasRows();
  bool isAtEnd();
  void moveNext();
  std::size_t position() const { return position_; }
  /// False, and no move, when there never was such a row.
  bool moveTo(std::size_t position);
  bool find(const std::string& column, const std::string& value);
  void findNext();

  Value value(std::string_view column);
  void update(const std::string& column, const std::string& text);
  void remove();

  void beginRow();
  /// Of the row being added.
  Id newKey() { return newRow().key; }
  void setValue(const std::string& column, const std::string& text);
  /// On failure the row is still being added, so that saving can be tried again.
  void saveRow();
  /// The single table that rows are added to.
  const TableDef& table() const;

 private:
  /// The row being added.
  struct NewRow {
    Id key = noId;
    bool isKeyGiven = false;
    /// By column of the table; nothing for one that was not set.
    std::vector<std::optional<Value>> values;
  };

  /// A larger template is a mistake, and would keep its desk busy for minutes.
  static constexpr std::size_t largestTemplate = 16u << 20;

  /// Of a column with a text that is larger.
  void requireNoTemplate(int index) const;
  void requireUpdatable() const;
  const PlanColumn& column(int index) const;
  /// A column that can be written: of one row of a table, and not its key unless `keyToo`.
  const PlanColumn& writableColumn(const std::string& name, bool keyToo) const;
  void requireCurrentRow();
  NewRow& newRow();
  Value newValue(const PlanColumn& column) const;
  Value storedValue(int index);
  /// Of the current row, which the statement has passed, or gives without a column that was never
  /// asked for.
  Value passedValue(int index);
  static std::size_t placeInTable(const PlanColumn& column);
  bool isDeleted(std::size_t row) const { return deleted_.count(row) > 0; }
  bool findFrom(std::size_t row);

  Session& session_;
  RowList rows_;
  LockMode lock_;
  std::size_t position_ = 0;
  std::set<std::size_t> deleted_;
  std::unique_ptr<NewRow> newRow_;
  std::vector<ColumnIndex> indexes_;
  int soughtColumn_ = -1;  // of the last find, or -1
  std::string soughtText_;
};

inline Value Recordset::value(std::string_view name) {
  const int index = rows_.plan().columnIndex(name);
  if (newRow_) return newValue(column(index));
  return storedValue(index);
}

/// Most often the statement is on the row.
inline Value Recordset::storedValue(int index) {
  Value result = rows_.isAtHand(position_, index) ? rows_.valueAtHand(index) : passedValue(index);
  const auto* text = result.getIf<std::string>();
  if (text && text->size() > largestTemplate) requireNoTemplate(index);
  return result;
}

}  // namespace autonotify::host
