#pragma once

#include <string>

#include "contract/windows.h"

namespace autonotify {

/// An operation of the control that opens a window: makes it, runs `initialize(window)`, which
/// blocks until the person is done, takes over its cancelFlag where it has one, and unloads it.
template <class Window, class Initialize>
void openWindow(const char* operation, bool& cancelFlag, Initialize&& initialize) {
  procedure(std::string("Morvane.exe-clsAutoNotifyCtrl-") + operation, [&](Step& step) {
    withWindow<Window>(step, [&](Window& window) {
      initialize(window);
      if constexpr (requires { window.cancelFlag(); }) cancelFlag = window.cancelFlag();
    });
  });
}

}  // namespace autonotify
