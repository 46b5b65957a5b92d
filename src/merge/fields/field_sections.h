#pragma once

#include <string_view>

#include "contract/procedure.h"
#include "merge/fields/field_list_builder.h"
#include "platform/Value.h"

namespace autonotify {

/// Adds one block of the catalogue, as a procedure with this tag.
void addFieldBlock(std::string_view tag, const FieldListTarget& target, const FieldBlock& block);

/// Adds the blocks of a list of this type (see field_list_type), each under its header and as a
/// procedure of its own. The headers are statements of the caller's frame.
void addFieldSections(Step& step, const FieldListTarget& target, int listType, Id companyID);

}  // namespace autonotify
