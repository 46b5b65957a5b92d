#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "merge/fields/field_catalogue.h"
#include "merge/records/merge_sources.h"

namespace autonotify {

/// Where the value of a field is read, and how it is printed.
struct FieldPlan {
  FieldType type{};
  bool isDocuments = false;           ///< the task's documents and instructions
  std::optional<MergeSource> source;  ///< else none: the field has no value
  std::string column;
  bool isColumn = false;  ///< of the source's row, read as named
};

/// The plan of a field of the list by its data type, its database field and its group.
FieldPlan planField(FieldType type, std::string column, std::string_view group);

}  // namespace autonotify
