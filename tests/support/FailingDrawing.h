#pragma once

#include "platform/PlatformError.h"
#include "platform/controls/Control.h"

namespace autonotify::test {

/// While it lives, the control is drawn as before, but not at one time.
struct FailingDrawing {
  FailingDrawing(Control& drawn, int failsAt)
      : control(drawn), left(failsAt), draw(drawn.onRender), drawRows(drawn.onRowChange) {
    control.onRender = [this](Aspect aspect) {
      count();
      if (draw) draw(aspect);
    };
    control.onRowChange = [this](const RowChange& change) {
      count();
      if (drawRows) drawRows(change);
    };
  }
  ~FailingDrawing() { control.onRender = draw, control.onRowChange = drawRows; }
  FailingDrawing(const FailingDrawing&) = delete;
  FailingDrawing& operator=(const FailingDrawing&) = delete;

  void count() {
    isDrawn = --left != 0;
    if (!isDrawn) throw PlatformError(1000, "Cannot draw");
  }

  Control& control;
  int left;
  std::function<void(Aspect)> draw;
  std::function<void(const RowChange&)> drawRows;
  bool isDrawn = false;  ///< the last time
};

}  // namespace autonotify::test
