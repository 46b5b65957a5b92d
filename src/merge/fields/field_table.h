#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "contract/GridColumnList.h"
#include "contract/procedure.h"
#include "merge/fields/field_list_columns.h"
#include "merge/fields/field_plan.h"
#include "merge/templates/text_numbers.h"

namespace autonotify {

/// A row of the field list: its items from column 1 on, as many as are given.
struct FieldRow {
  std::array<Value, field_column::length> items;
  std::size_t itemCount = 0;
  FieldPlan plan;

  const Value& item(int column) const { return items.at(static_cast<std::size_t>(column - 1)); }
};

/// Rows that go into a list one behind the other; made once and shared by all lists.
using FieldRows = std::vector<FieldRow>;
using SharedFieldRows = std::shared_ptr<const FieldRows>;

/// A field of the list as far as a merge compares it with tokens.
struct MergeField {
  std::string foldedName;
  int index = 0;
  bool isDate = false;
  const FieldPlan* plan = nullptr;  ///< null for a row that the list's holder may change
};

/// All fields of a list, in its order.
class MergeFields {
 public:
  /// `rows` are those whose plans the fields point into.
  explicit MergeFields(std::vector<MergeField> fields, std::vector<SharedFieldRows> rows = {});
  MergeFields(const MergeFields&) = delete;
  MergeFields& operator=(const MergeFields&) = delete;

  /// False when a name holds a mark: then tokens may overlap, and no claims can be told.
  bool canClaim() const { return canClaim_; }
  /// The field in this row of the list, from 1.
  const MergeField& field(int row) const { return fields_[static_cast<std::size_t>(row - 1)]; }
  /// The first row with such a field of this name; 0 for none.
  int firstRow(const HashedText& foldedName, bool isDate) const;

 private:
  /// The first rows with a name.
  struct NamedRows {
    int date = 0;
    int other = 0;
  };

  std::vector<MergeField> fields_;
  std::vector<SharedFieldRows> rows_;
  TextNumbers names_;
  std::vector<NamedRows> named_;  ///< by the number of the name
  bool canClaim_ = true;
};

MergeField mergeFieldOf(const Value& displayName, int key, const Value& dataType);

/// The rows of a field list, looked at by their keys 1, 2, 3 ...
class FieldTable {
 public:
  explicit FieldTable(const std::vector<SharedFieldRows>& pieces);
  int size() const { return static_cast<int>(rows_.size()); }
  /// Requires: 1 <= key <= size().
  const FieldRow& row(int key) const { return *rows_[static_cast<std::size_t>(key - 1)]; }
  const std::shared_ptr<const MergeFields>& mergeFields() const { return mergeFields_; }

 private:
  std::vector<const FieldRow*> rows_;
  std::shared_ptr<const MergeFields> mergeFields_;
};

/// The table of these pieces; the tables used last are kept.
std::shared_ptr<const FieldTable> sharedFieldTable(const std::vector<SharedFieldRows>& pieces);

/// The field list of one engine.
///
/// Rows are shared with all engines of the same installation and labels until somebody asks for the
/// list itself: then they are copied into the host's list, which its holder may change and which is
/// read from that time on.
///
/// Operations have the meaning of GridColumnList's and its failures.
class FieldList {
 public:
  explicit FieldList(std::unique_ptr<GridColumnList> list) : list_(std::move(list)) {}

  /// The host's list with all rows.
  GridColumnList* lend(Step& step);

  void clearEntries();
  void addRows(Step& step, const SharedFieldRows& rows, int firstKey);
  int getEntryCount();
  bool selectEntry(int key);
  int findEntry(int column, const std::string& text);
  Value getItem(int column);
  Value getEntryKey();
  std::shared_ptr<const MergeFields> mergeFields();
  /// True when these are the fields that the list has now, and their plans hold.
  bool shows(const MergeFields& fields) const {
    return !isLent_ && table_ && table_->mergeFields().get() == &fields;
  }

 private:
  const FieldTable& table();
  int currentKey() const;

  std::unique_ptr<GridColumnList> list_;
  bool isLent_ = false;
  std::vector<SharedFieldRows> pieces_;
  std::shared_ptr<const FieldTable> table_;
  int current_ = 0;
};

/// Appends the rows under the keys from `firstKey` on, each by a statement of its own.
void addRowsTo(Step& step, GridColumnList& list, const FieldRows& rows, int firstKey);

}  // namespace autonotify
