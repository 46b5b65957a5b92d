#include "merge/fields/field_plan.h"

#include <utility>

#include "merge/records/record_fields.h"

namespace autonotify {

FieldPlan planField(FieldType type, std::string column, std::string_view group) {
  FieldPlan plan;
  plan.type = type;
  plan.isDocuments = group == "DocsAndInstructionsInfo";
  plan.source = findMergeSource(group);
  plan.isColumn = plan.source && RecordFields::isColumn(*plan.source, column);
  plan.column = std::move(column);
  return plan;
}

}  // namespace autonotify
