#pragma once

#include "support/WindowRenderer.h"

namespace autonotify::test {

/// Draws the windows of the tests with the desktop's renderer; the person acts by keys and mouse.
class QtRenderer : public WindowRenderer {
 public:
  void show(Form& form, const Use& use) override;
};

}  // namespace autonotify::test
