#pragma once

#include "contract/PlatformServices.h"

namespace autonotify::host {

/// A host without a screen: it shows no window, and no message ever waits.
class HeadlessFormHost : public FormHost {
 public:
  void pumpMessages() override {}
};

}  // namespace autonotify::host
