#pragma once

#include "contract/tags.h"
#include "contract/windows.h"

namespace autonotify {

/// An operation of the control that opens a window: makes it, lets `use(window)` run its
/// initializer, which blocks until the person is done, and read its outcome, and unloads it.
template <class Window, FixedText operation, class Use>
void openWindow(Use&& use) {
  procedure(procedureTag<"clsAutoNotifyCtrl", operation>,
            [&](Step& step) { withWindow<Window>(step, use); });
}

}  // namespace autonotify
