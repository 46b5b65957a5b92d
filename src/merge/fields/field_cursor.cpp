#include "merge/fields/field_cursor.h"

#include "platform/PlatformError.h"

namespace autonotify {

FieldList& FieldCursor::list() const {
  if (!list_) throw PlatformError(error_number::objectNotSet, "Object not set", "FieldList");
  return *list_;
}

std::shared_ptr<const MergeFields> FieldCursor::mergeFields() const {
  std::shared_ptr<const MergeFields> known;
  step_.assign(known, [&] { return list().mergeFields(); });
  return known;
}

std::string FieldCursor::text(int column) const {
  std::string text;
  read(text, column);
  return text;
}

int FieldCursor::dataType() const {
  int type = 0;
  read(type, field_column::dataType);
  return type;
}

}  // namespace autonotify
