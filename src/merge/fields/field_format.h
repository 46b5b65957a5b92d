#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "merge/fields/field_catalogue.h"
#include "platform/DateTime.h"
#include "platform/Value.h"
#include "platform/format.h"

namespace autonotify {

/// The format of a date field, "mmm d, yyyy" when the pattern is empty.
DateFormat fieldDateFormat(std::string_view pattern);

/// Nothing for a date before 1900, which stays in its text form.
std::optional<std::string> formattedDate(DateTime date, const DateFormat& format);

/// A value as its type prints it; nothing for one that stays in its text form, and for a date
/// before 1900. `format` is that of a date. Throws PlatformError.
std::optional<std::string> formattedField(const Value& value, FieldType type,
                                          const DateFormat& format);

}  // namespace autonotify
