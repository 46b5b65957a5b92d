#pragma once

#include <memory>
#include <string>

#include "contract/procedure.h"
#include "merge/fields/field_list_columns.h"
#include "merge/fields/field_table.h"

namespace autonotify {

/// A field list as procedures read it: each call is a statement of the frame that the step belongs
/// to, and fails with 91 where there is no list. Neither step nor list is owned.
class FieldCursor {
 public:
  FieldCursor(Step& step, const std::unique_ptr<FieldList>& list) : step_(step), list_(list) {}

  int count() const {
    return step_.value(0, [&] { return list().getEntryCount(); });
  }
  void clear() const {
    step_.run([&] { list().clearEntries(); });
  }
  std::shared_ptr<const MergeFields> mergeFields() const;

  // Make a row current; False when there is none.
  bool select(int key) const {
    return step_.holds([&] { return list().selectEntry(key); });
  }
  bool find(int column, const std::string& text) const {
    return step_.holds([&] { return list().findEntry(column, text) >= 0; });
  }

  // An item of the current row, as a text or a number or as converted. Skipped, `target` keeps its
  // old value.
  void read(std::string& target, int column) const {
    step_.assign(target, [&] { return toText(list().getItem(column)); });
  }
  void read(int& target, int column) const {
    step_.assign(target, [&] { return toInteger(list().getItem(column)); });
  }
  template <class Target, class Convert>
  void read(Target& target, int column, Convert&& convert) const {
    step_.assign(target, [&] { return convert(list().getItem(column)); });
  }
  void readKey(int& key) const {
    step_.assign(key, [&] { return toInteger(list().getEntryKey()); });
  }

  /// Empty when skipped.
  std::string text(int column) const;
  /// See FieldType; 0 when skipped.
  int dataType() const;

 private:
  FieldList& list() const;

  Step& step_;
  const std::unique_ptr<FieldList>& list_;
};

}  // namespace autonotify
