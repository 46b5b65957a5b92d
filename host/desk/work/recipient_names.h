#pragma once

#include <string>
#include <vector>

#include "host/desk/Desk.h"

namespace autonotify::host {

/// Who an email address, a fax or telephone number belongs to.
struct NamedAddress {
  std::string address;
  /// All who share it; of more than three the first two and "...". Empty where nobody is known by
  /// it.
  std::string name = {};
  /// The firm's own or a member of its staff.
  bool isOfFirm = false;
};

/// The addresses in their order; capitals don't matter, nor does what a list of numbers says behind
/// one ("555-0100 <Home Fax>"). Throws DatabaseError.
std::vector<NamedAddress> nameAddresses(Desk& desk, const std::vector<std::string>& addresses);

}  // namespace autonotify::host
