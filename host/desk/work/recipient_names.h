#pragma once

#include <string>
#include <vector>

#include "host/desk/Desk.h"

namespace autonotify::host {

/// Who an email address belongs to.
struct NamedAddress {
  std::string address;
  /// Empty where nobody is known by it.
  std::string name;
  /// The firm's own or a member of its staff.
  bool isOfFirm = false;
};

/// The addresses in their order; capitals don't matter. Throws DatabaseError.
std::vector<NamedAddress> nameAddresses(Desk& desk, const std::vector<std::string>& addresses);

}  // namespace autonotify::host
