#pragma once

namespace autonotify {

/// Values of `ListType`: whose fields are listed. Any other value lists the firm's alone.
namespace field_list_type {
inline constexpr int noItem = 1;
inline constexpr int client = 2;
inline constexpr int contact = 3;
inline constexpr int appointment = 5;
inline constexpr int timeEntry = 6;
inline constexpr int task = 8;
}  // namespace field_list_type

/// Values of `MergeFieldListUse`: what the list is for.
namespace field_list_use {
inline constexpr int merging = 1;
inline constexpr int bulkMerging = 2;   ///< recordsets hold all rows
inline constexpr int assigning = 3;     ///< starts with "Not Assigned", addresses in lines
inline constexpr int withoutNotes = 4;  ///< else as for merging
inline constexpr int updating = 5;      ///< recordsets can be written to
}  // namespace field_list_use

}  // namespace autonotify
