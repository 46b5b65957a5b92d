#pragma once

namespace autonotify::field_column {

// The items of a row of the field list.
inline constexpr int databaseField = 1;
inline constexpr int displayName = 2;
inline constexpr int group = 3;
inline constexpr int dataType = 4;  ///< see FieldType
inline constexpr int sample = 5;
inline constexpr int length = 6;

}  // namespace autonotify::field_column
