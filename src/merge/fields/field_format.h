#pragma once

#include <optional>
#include <string>

#include "merge/fields/field_catalogue.h"
#include "platform/Value.h"

namespace autonotify {

/// A value as its type prints it; nothing for one that stays in its text form, and for a date
/// before 1900. `format` is that of a date, "mmm d, yyyy" when empty. Throws PlatformError.
std::optional<std::string> formattedField(const Value& value, FieldType type,
                                          const std::string& format);

}  // namespace autonotify
