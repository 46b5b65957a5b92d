#pragma once

#include "control/contract/PlatformServices.h"

namespace autonotify::host {

/// A host without a screen: no window is ever open, no message ever waits.
class HeadlessFormHost : public FormHost {
 public:
  std::vector<Form*> openForms() override { return {}; }
  void pumpMessages() override {}
};

}  // namespace autonotify::host
