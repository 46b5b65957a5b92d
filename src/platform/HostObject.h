#pragma once

namespace autonotify {

/// Base of every object that crosses the border between host and component: what the host lends,
/// what the component creates by the name of its class, and the windows and controls that the host
/// shows.
class HostObject {
 public:
  virtual ~HostObject() = default;
};

}  // namespace autonotify
