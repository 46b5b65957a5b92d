#pragma once

#include "platform/PlatformError.h"

namespace autonotify::test {

/// The number of the PlatformError that the call throws, 0 when it throws none.
template <class Call>
int errorOf(Call&& call) {
  try {
    call();
    return 0;
  } catch (const PlatformError& error) {
    return error.number();
  }
}

}  // namespace autonotify::test
