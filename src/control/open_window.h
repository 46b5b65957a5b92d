#pragma once

#include <functional>

#include "contract/tags.h"
#include "contract/windows.h"

namespace autonotify {

/// An operation of the control that opens a window: makes it, runs `initialize` with the arguments,
/// which blocks until the person is done, takes over its cancelFlag where it has one, and unloads
/// it.
template <class Window, FixedText operation, class Initialize, class... Arguments>
void openWindow(bool& cancelFlag, Initialize initialize, const Arguments&... arguments) {
  procedure(procedureTag<"clsAutoNotifyCtrl", operation>, [&](Step& step) {
    withWindow<Window>(step, [&](Window& window) {
      std::invoke(initialize, window, arguments...);
      if constexpr (requires { window.cancelFlag(); }) cancelFlag = window.cancelFlag();
    });
  });
}

}  // namespace autonotify
