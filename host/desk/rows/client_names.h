#pragma once

#include <string>

#include "host/desk/Desk.h"

namespace autonotify::host {

/// The company's name, or else the contact's; empty when there is neither.
std::string clientName(Desk& desk, Id companyId, Id contactId);

}  // namespace autonotify::host
