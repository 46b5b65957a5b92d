#pragma once

#include <string>
#include <string_view>

namespace autonotify::host {

/// The name as it may stand behind other words in the name of a folder, on any file system: one
/// line without separators, control characters and signs that some system keeps for itself, at most
/// 60 characters, with no blank and no dot at its ends. May be empty.
std::string safeName(std::string_view name);

}  // namespace autonotify::host
