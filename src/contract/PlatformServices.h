#pragma once

#include "contract/HostClassRegistry.h"
#include "platform/Clock.h"
#include "platform/controls/Form.h"

namespace autonotify {

/// What the component needs of its platform, handed over through the class object before the
/// first object is created. Not owned: all three outlive every object of the component.
struct PlatformServices {
  HostClassRegistry* classRegistry = nullptr;
  Clock* clock = nullptr;
  FormHost* formHost = nullptr;
};

}  // namespace autonotify
