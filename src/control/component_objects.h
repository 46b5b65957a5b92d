#pragma once

#include <memory>

#include "control/component.h"

namespace autonotify {

/// A piece of the library in use: while one lives, DllCanUnloadNow says no.
class LibraryUse {
 public:
  LibraryUse() noexcept;
  ~LibraryUse();
  LibraryUse(const LibraryUse&) = delete;
  LibraryUse& operator=(const LibraryUse&) = delete;

  /// True when none lives.
  static bool isIdle() noexcept;
};

// The creatable classes. Each object keeps the library in use. The control's maker throws
// PlatformError when the host's registry cannot create what it needs; the context is then as it was
// before. A notification asks at the error dialog instead.

std::unique_ptr<ComponentObject> makeAutoNotifyCtrl();
std::unique_ptr<ComponentObject> makeAutoNotification();
std::unique_ptr<ComponentObject> makeNotificationTools();
std::unique_ptr<ComponentObject> makeFrmSentNotifyBulk();

}  // namespace autonotify
