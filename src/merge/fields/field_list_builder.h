#pragma once

#include <array>
#include <functional>
#include <string>

#include "contract/procedure.h"
#include "merge/fields/field_catalogue.h"
#include "merge/fields/field_list_kinds.h"
#include "merge/fields/field_table.h"
#include "platform/DateTime.h"
#include "platform/controls/ListBox.h"

namespace autonotify {

/// What of the installation and of the use shapes the field list. Parts that could not be read keep
/// their defaults, which no rule names.
struct FieldListSetting {
  int country = 0;
  int province = -1;
  DateTime today;
  int mergeFieldListUse = field_list_use::merging;

  /// The conditions that hold.
  field_condition::Set conditions() const;
  std::string wordFor(InstallationLabel label) const;
  /// Settings that are equal have the same fields on the same day.
  friend bool operator==(const FieldListSetting&, const FieldListSetting&) = default;
};

/// A field list under construction and what shows it.
struct FieldListTarget {
  /// Appends the rows under the keys from `firstKey` on.
  std::function<void(Step& step, const SharedFieldRows& rows, int firstKey)> addRows;
  ListBox* box;     ///< null: the rows are shown nowhere
  bool hasHeaders;  ///< the list box shows category headers
  int& rowCount;    ///< the key of the row added last; goes on from there
  int mergeFieldListUse;
};

/// Adds blocks of the catalogue to a field list and shows the added rows in a list box.
///
/// Works inside the frame of one procedure: every host call is a statement of it.
class FieldListBuilder {
 public:
  FieldListBuilder(Step& step, const FieldListTarget& target);

  /// Adds the fields of the block that this installation and use have, in the catalogue's order.
  void addBlock(const FieldBlock& block);

 private:
  SharedFieldRows fieldsOf(const FieldPart& part, std::string_view group) const;
  void add(const SharedFieldRows& rows);
  /// The firm's labels, each empty where it never set one.
  std::array<std::string, 5> ownLabels(const CustomFields& custom);

  Step& step_;
  FieldListTarget target_;
  FieldListSetting setting_;
};

// Each line of a list box is a statement of the frame that the step belongs to.

/// Appends a line. `itemData` is -1 for a line that stands for no field.
void addListBoxLine(Step& step, ListBox& box, const std::string& text, int itemData = -1);

/// Appends a category header; every one but the first has an empty line ahead of it.
void addListBoxHeader(Step& step, ListBox& box, std::string_view header, bool isFirst);

}  // namespace autonotify
