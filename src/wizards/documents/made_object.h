#pragma once

#include <memory>

#include "platform/PlatformError.h"

namespace autonotify {

/// The object that an earlier statement made. Throws PlatformError (91) when that was skipped.
template <class T>
T& made(const std::unique_ptr<T>& object) {
  if (!object) throw PlatformError(error_number::objectNotSet, "Object not set");
  return *object;
}

}  // namespace autonotify
