#pragma once

#include <string>

#include "platform/DateTime.h"

namespace autonotify::desktop {

/// Makes the file with an invented firm in it.
void makeDemoFirm(const std::string& path, int companies, int contacts, DateTime today);

}  // namespace autonotify::desktop
