#pragma once

#include <cstdlib>

/// Ends the run as a fault unless the property holds.
inline void require(bool holds) {
  if (!holds) std::abort();
}
