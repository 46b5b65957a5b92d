#pragma once

#include "platform/PlatformError.h"

/// Numbers of the errors that the host raises beside the component's own.
namespace autonotify::error_number {
inline constexpr int fileNotFound = 53;
inline constexpr int fileAlreadyExists = 58;
inline constexpr int diskFull = 61;
inline constexpr int pathFileAccess = 75;
inline constexpr int pathNotFound = 76;
}  // namespace autonotify::error_number
