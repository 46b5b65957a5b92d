#pragma once

#include <string>
#include <string_view>

#include "host/database/schema/Schema.h"
#include "platform/Value.h"

namespace autonotify::host {

/// The value that a text stands for in a column, as it is written there.
///
/// Flags: "True" and "False" in any case, and numbers (0 is False). Dates: all forms of
/// parseDateTime. Empty text is NULL in a number or date column, and is refused for a flag or a
/// key. Throws PlatformError: 13 for a text that cannot be read so, 6 for a number outside the
/// column's range; DatabaseError (invalidText) for a NUL byte and for what is no UTF-8.
Value valueFromText(const ColumnDef& column, const std::string& text);

/// What a row holds that does not name the column.
Value defaultValue(const ColumnDef& column);

/// A text that two values of a column have in common exactly if they are equal; NULL is as empty.
std::string comparisonText(const Value& value);

}  // namespace autonotify::host
