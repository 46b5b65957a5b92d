#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "merge/fields/field_table.h"
#include "merge/templates/template_layout.h"
#include "platform/format.h"

namespace autonotify {

/// A token of a template and the field that fills it.
struct FieldClaim {
  int row;  ///< of the field list, from 1; 0 for today's date
  std::size_t token;
  std::size_t format;         ///< of mergeDateFormats; as many as there are for none
  const DateFormat* pattern;  ///< that prints it

  bool isToday() const { return row == 0; }
  bool isDate() const { return format < mergeDateFormats.size(); }
};

/// The claims on a template, and the fields that make them.
struct FieldClaims {
  std::shared_ptr<const MergeFields> fields;
  std::vector<FieldClaim> list;
};

/// Which fields fill which tokens of the template, in the order in which a merge looks for the
/// fields; a token goes to the first that finds it. The claims told last are kept.
/// Requires: fields->canClaim() and layout->isRegular().
std::shared_ptr<const FieldClaims> claimsOn(const std::shared_ptr<const MergeFields>& fields,
                                            const std::shared_ptr<const TemplateLayout>& layout);

}  // namespace autonotify
