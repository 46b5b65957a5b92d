#pragma once

#include <functional>
#include <string>

#include "platform/HostObject.h"

namespace autonotify {

/// Shows how far a long work has come; the work is done in its start event. A new object for each
/// work.
class ProgressDialog : public HostObject {
 public:
  static constexpr const char* className = "ProgressDialog";
  /// The number of the error that tells that the person has cancelled.
  static constexpr int cancelled = 18;

  virtual void put_text(const std::string& text) = 0;
  /// The window that it stands above, not owned; may be null.
  virtual void put_owner(HostObject* window) = 0;
  /// The value at which the work is done; 0 when there is nothing to do.
  virtual void put_maximum(int maximum) = 0;
  virtual int get_value() = 0;
  /// Throws PlatformError `cancelled` once the person has cancelled, if the host offers that; the
  /// host settles it by leaving the procedure, with all done that was counted.
  virtual void put_value(int value) = 0;
  /// Comes up, raises StartProgress once it is on the screen, and returns when that is done, off
  /// the screen.
  virtual void show() = 0;
  /// Takes it off the screen; during StartProgress too, which goes on. Nothing happens when it is
  /// off already.
  virtual void close() = 0;

  /// The work. The object outlives it: whoever made the object destroys it when show has returned.
  std::function<void()> StartProgress;
};

}  // namespace autonotify
