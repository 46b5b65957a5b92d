#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "host/clients/unreadable_rows.h"
#include "host/desk/Desk.h"

namespace autonotify::host {

/// A client as commands name it: a company by `client`, a person by `contact`.
struct ClientLine {
  /// -1 for a person.
  Id client = noId;
  Id company = noId;
  /// -1 for a company.
  Id contact = noId;
  /// The client number that the firm gave.
  std::string number;
  std::string name, phone, email, accountant;
};

/// A member of staff.
struct StaffLine {
  Id user = noId;
  std::string name, title, phone, email;
  /// Of rights: 1 has all, 5 the fewest.
  Id level = noId;
};

// Both tell those whose name or number holds the text, in any case; all for an empty text. They
// give what could not be read. Throw DatabaseError.

/// Companies, then persons, each by name.
UnreadableRows listClients(Desk& desk, const std::string& text,
                           const std::function<void(const ClientLine&)>& tell);
/// As many as listClients tells.
std::size_t countClients(Desk& desk);
/// By name.
UnreadableRows listStaff(Desk& desk, const std::string& text,
                         const std::function<void(const StaffLine&)>& tell);

}  // namespace autonotify::host
