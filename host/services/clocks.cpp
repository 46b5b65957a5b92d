#include "host/services/clocks.h"

#include <algorithm>
#include <ctime>

namespace autonotify::host {

DateTime SystemClock::now() {
  const std::time_t instant = std::time(nullptr);
  std::tm local{};
  localtime_r(&instant, &local);
  // A leap second shows as second 60, which no DateTime holds.
  return DateTime::of(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon) + 1,
                      static_cast<unsigned>(local.tm_mday), local.tm_hour, local.tm_min,
                      std::min(local.tm_sec, 59));
}

}  // namespace autonotify::host
