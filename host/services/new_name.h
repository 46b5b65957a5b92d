#pragma once

namespace autonotify::host {

/// Renames a file without ever replacing one: false, with errno set, when something of the new name
/// is there or the file system fails. Both names are seen from `folder`, an open folder or
/// AT_FDCWD. Where the file system has no such renaming the file is linked, and the old name stays
/// for the caller to remove.
bool giveNewName(int folder, const char* from, const char* to);

}  // namespace autonotify::host
