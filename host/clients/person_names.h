#pragma once

#include <string>

namespace autonotify::host {

/// The names on a contact's record; any may be empty.
struct PersonNames {
  std::string display;
  std::string first;
  std::string last;
  std::string spouseFirst;
  std::string spouseLast;
  /// The spouse's whole name as one text.
  std::string spouse;
};

/// The display name, or first and last name when it is empty.
std::string displayName(const PersonNames& names);

/// Contact and spouse joined by " & ". With `shareLastName`, and with a spouse who bears the same
/// last name or none, the last name stands once. Without a spouse the display name.
std::string coupleName(const PersonNames& names, bool shareLastName);

}  // namespace autonotify::host
