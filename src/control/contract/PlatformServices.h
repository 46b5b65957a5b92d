#pragma once

#include <string>
#include <vector>

#include "control/contract/HostObject.h"
#include "platform/Clock.h"

namespace autonotify {

/// A window of the component, as the host and other windows know it.
class Form {
 public:
  virtual ~Form() = default;
  /// The window's class name, such as "frmAutoNotifyList".
  virtual std::string name() const = 0;
};

/// Shows the component's windows and lets the host's interface breathe.
class FormHost {
 public:
  virtual ~FormHost() = default;
  /// All windows of the component that are loaded at present; not owned.
  virtual std::vector<Form*> openForms() = 0;
  /// Handles the messages that wait; may enter the component again.
  virtual void pumpMessages() = 0;
};

/// What the component needs of its platform, handed over through the class object before the
/// first object is created. Not owned: all three outlive every object of the component.
struct PlatformServices {
  HostClassRegistry* classRegistry = nullptr;
  Clock* clock = nullptr;
  FormHost* formHost = nullptr;
};

}  // namespace autonotify
